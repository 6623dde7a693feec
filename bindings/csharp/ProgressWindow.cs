using System;
using System.ComponentModel;
using System.Runtime.ExceptionServices;
using System.Runtime.InteropServices;

namespace Zelconvert
{
    /// <summary>
    /// The window that the library tells its progress to while it is open. It keeps its procedure alive, and
    /// what the handler throws away from the library's code until <see cref="ThrowIfFailed"/>.
    /// </summary>
    internal abstract class ProgressWindow : IDisposable
    {
        private readonly Action<ProgressEventArgs> handler;
        private ExceptionDispatchInfo failure;

        protected ProgressWindow(Action<ProgressEventArgs> handler)
        {
            this.handler = handler;
        }

        internal static ProgressWindow Open(Action<ProgressEventArgs> handler)
        {
            ProgressWindow window = WideText.IsWindows
                ? (ProgressWindow)new WindowsProgressWindow(handler) : new PosixProgressWindow(handler);
            NativeMethods.cZelSetupZelConvertDLLCallBack(window.Handle);
            return window;
        }

        internal IntPtr Handle { get; set; }

        public void Dispose()
        {
            NativeMethods.cZelSetupZelConvertDLLCallBack(IntPtr.Zero);
            Close();
        }

        internal void ThrowIfFailed()
        {
            if (failure != null) failure.Throw();
        }

        protected abstract void Close();

        /// <summary>After the handler has failed once it is not called again.</summary>
        protected void Receive(UIntPtr kind, IntPtr value)
        {
            if (failure != null) return;
            try
            {
                if (kind.ToUInt64() == 0) handler(new ProgressEventArgs(ProgressStage.Start, WideText.Read(value), 0));
                if (kind.ToUInt64() == 1) handler(new ProgressEventArgs(ProgressStage.Running, "", (int)value.ToInt64()));
                if (kind.ToUInt64() == 2) handler(new ProgressEventArgs(ProgressStage.End, "", 100));
            }
            catch (Exception exception)
            {
                failure = ExceptionDispatchInfo.Capture(exception);
            }
        }
    }

    internal sealed class PosixProgressWindow : ProgressWindow
    {
        private readonly PosixProcedure procedure;

        internal PosixProgressWindow(Action<ProgressEventArgs> handler)
            : base(handler)
        {
            procedure = OnMessage;
            Handle = Marshal.AllocHGlobal(IntPtr.Size); // a ZelWindow: the address of its procedure
            Marshal.WriteIntPtr(Handle, Marshal.GetFunctionPointerForDelegate(procedure));
        }

        protected override void Close()
        {
            Marshal.FreeHGlobal(Handle);
            GC.KeepAlive(procedure);
        }

        private IntPtr OnMessage(IntPtr window, uint message, UIntPtr kind, IntPtr value)
        {
            if (message == PosixMethods.ProgressMessage) Receive(kind, value);
            return IntPtr.Zero;
        }
    }

    /// <summary>
    /// A message-only window of a class that every process has, with a procedure before its own. Messages
    /// are sent to it on its own thread, the one that converts, so nobody has to run a message loop.
    /// </summary>
    internal sealed class WindowsProgressWindow : ProgressWindow
    {
        private readonly uint progressMessage = WindowsMethods.RegisterWindowMessageW("WM_ZELCONVERT_CALLBACK");
        private readonly WindowsProcedure procedure;
        private readonly IntPtr previous;

        internal WindowsProgressWindow(Action<ProgressEventArgs> handler)
            : base(handler)
        {
            Handle = WindowsMethods.CreateWindowExW(
                0, "STATIC", "", 0, 0, 0, 0, 0, new IntPtr(WindowsMethods.HwndMessage), IntPtr.Zero, IntPtr.Zero,
                IntPtr.Zero);
            if (Handle == IntPtr.Zero) throw new Win32Exception();
            procedure = OnMessage;
            previous = SetProcedure(Marshal.GetFunctionPointerForDelegate(procedure));
        }

        protected override void Close()
        {
            SetProcedure(previous);
            WindowsMethods.DestroyWindow(Handle);
            GC.KeepAlive(procedure);
        }

        private IntPtr SetProcedure(IntPtr address)
        {
            if (IntPtr.Size == 4) return WindowsMethods.SetWindowLongW(Handle, WindowsMethods.GwlpWndProc, address);
            return WindowsMethods.SetWindowLongPtrW(Handle, WindowsMethods.GwlpWndProc, address);
        }

        private IntPtr OnMessage(IntPtr window, uint message, UIntPtr kind, IntPtr value)
        {
            if (message != progressMessage) return WindowsMethods.CallWindowProcW(previous, window, message, kind, value);
            Receive(kind, value);
            return IntPtr.Zero;
        }
    }
}
