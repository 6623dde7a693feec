// The functions of zelconvert.h as they are, and what their calls need of the system. Programs use the
// class Converter, which gives strings, lists and exceptions.
using System;
using System.Runtime.InteropServices;

namespace Zelconvert
{
    /// <summary>
    /// The eleven functions. The loader finds "zelconvert" as libzelconvert.so or zelconvert.dll. A string is
    /// an array of bytes as <see cref="WideText"/> makes it, a buffer for one an array to be filled; an
    /// address is an IntPtr. Every char of the header is a byte here: 1 or 0.
    /// </summary>
    internal static class NativeMethods
    {
        private const string Library = "zelconvert";
        private const CallingConvention Convention = CallingConvention.Cdecl;

        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        internal static extern int cZelGetNumFileTypes();

        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        internal static extern byte cZelGetDescription(int type, [Out] byte[] buffer);

        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        internal static extern byte cZelGetExtension(int type, [Out] byte[] buffer);

        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        internal static extern byte cZelGetFileFilter(int type, [Out] byte[] buffer);

        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        internal static extern int cZelGetFileType(byte[] path);

        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        internal static extern byte cZelGetSupportedInputTypes(int type, ref IntPtr list, ref int count);

        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        internal static extern byte cZelGetSupportedOutputTypes(int type, ref IntPtr list, ref int count);

        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        internal static extern void cZelSetupZelConvertDLLCallBack(IntPtr window);

        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        internal static extern void cZelSetGpsSecurityInDcConversions(byte enable);

        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        internal static extern byte cZelFileConvert(
            int inputType, byte[] inputPath, int outputType, byte[] outputPath, ref IntPtr files,
            ref IntPtr messages, int units, byte[] featureFile);

        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        internal static extern void cZelFreeAfterFileConvert(IntPtr files, IntPtr messages);
    }

    /// <summary>The procedure of a ZelWindow, where a window is that structure.</summary>
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    internal delegate IntPtr PosixProcedure(IntPtr window, uint message, UIntPtr kind, IntPtr value);

    /// <summary>What isn't Windows: the heap that lists of types come from.</summary>
    internal static class PosixMethods
    {
        /// <summary>ZEL_CONVERT_CALLBACK_MESSAGE.</summary>
        internal const uint ProgressMessage = 0xC5E1;

        [DllImport("libc", CallingConvention = CallingConvention.Cdecl)]
        internal static extern void free(IntPtr block);
    }

    /// <summary>The procedure of a window, where it is an HWND.</summary>
    [UnmanagedFunctionPointer(CallingConvention.StdCall)]
    internal delegate IntPtr WindowsProcedure(IntPtr window, uint message, UIntPtr kind, IntPtr value);

    /// <summary>Windows: the heap that lists of types come from, and a window that shows nothing.</summary>
    internal static class WindowsMethods
    {
        /// <summary>HWND_MESSAGE: the parent of windows that only receive messages.</summary>
        internal const int HwndMessage = -3;

        /// <summary>GWLP_WNDPROC: the place of a window's procedure.</summary>
        internal const int GwlpWndProc = -4;

        [DllImport("kernel32", ExactSpelling = true)]
        internal static extern IntPtr GetProcessHeap();

        [DllImport("kernel32", ExactSpelling = true)]
        internal static extern int HeapFree(IntPtr heap, uint flags, IntPtr block);

        [DllImport("user32", CharSet = CharSet.Unicode, ExactSpelling = true)]
        internal static extern uint RegisterWindowMessageW(string name);

        [DllImport("user32", CharSet = CharSet.Unicode, ExactSpelling = true, SetLastError = true)]
        internal static extern IntPtr CreateWindowExW(
            uint extendedStyle, string className, string title, uint style, int x, int y, int width,
            int height, IntPtr parent, IntPtr menu, IntPtr instance, IntPtr parameter);

        /// <summary>Stands in the 32-bit user32 alone, as SetWindowLongPtrW in the 64-bit one.</summary>
        [DllImport("user32", ExactSpelling = true)]
        internal static extern IntPtr SetWindowLongW(IntPtr window, int place, IntPtr value);

        [DllImport("user32", ExactSpelling = true)]
        internal static extern IntPtr SetWindowLongPtrW(IntPtr window, int place, IntPtr value);

        [DllImport("user32", ExactSpelling = true)]
        internal static extern IntPtr CallWindowProcW(
            IntPtr previous, IntPtr window, uint message, UIntPtr kind, IntPtr value);

        [DllImport("user32", ExactSpelling = true)]
        internal static extern int DestroyWindow(IntPtr window);
    }
}
