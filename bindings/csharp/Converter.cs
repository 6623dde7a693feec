using System;
using System.Collections.Generic;
using System.Runtime.InteropServices;
using System.Threading;

namespace Zelconvert
{
    /// <summary>The file types. The numbers are those of the library and never change.</summary>
    public enum FileType
    {
        /// <summary>.cr5 binary coordinate list</summary>
        Cr5 = 0,
        /// <summary>.job job database, version 5</summary>
        Job = 1,
        /// <summary>.raw field log</summary>
        Raw = 2,
        /// <summary>.job with the .raw of the same name beside it</summary>
        JobRaw = 3,
        /// <summary>.sdr, SDR2 form</summary>
        Sdr2 = 4,
        /// <summary>.sdr, SDR33 form</summary>
        Sdr33 = 5,
        /// <summary>.dc data collector text</summary>
        Dc = 6,
        /// <summary>.job job database, version 3</summary>
        OldJob = 7,
        /// <summary>.rw5 field log</summary>
        Rw5 = 8,
        /// <summary>.cr5 with the .rw5 of the same name beside it</summary>
        Cr5Rw5 = 9,
        /// <summary>.dc, header V07-70</summary>
        Dc77 = 10,
        /// <summary>.dc, header V10-70</summary>
        Dc1000 = 11,
        /// <summary>.cr5 with a record for every number in its range</summary>
        SeqCr5 = 12,
        /// <summary>.ilj interlock job text</summary>
        Ilj = 13,
        /// <summary>.dc, header V10-70</summary>
        Dc1070 = 14,
        /// <summary>.jxl JobXML</summary>
        Jxl = 15,
        /// <summary>.pwj job database of the second brand</summary>
        PwJob = 16,
        /// <summary>.pwr field log of the second brand</summary>
        PwRaw = 17,
        /// <summary>.pwj with the .pwr of the same name beside it</summary>
        PwJobRaw = 18,
    }

    /// <summary>The unit of the lengths in a coordinate list (CR5), which doesn't tell it.</summary>
    public enum LengthUnit
    {
        /// <summary>metres</summary>
        Metres = 0,
        /// <summary>feet of 0.3048 m</summary>
        InternationalFeet = 1,
        /// <summary>feet of 1200/3937 m</summary>
        UsSurveyFeet = 2,
    }

    /// <summary>Where a conversion is.</summary>
    public enum ProgressStage
    {
        /// <summary>It begins; there is a text.</summary>
        Start,
        /// <summary>It goes on; there is a percentage.</summary>
        Running,
        /// <summary>It is done.</summary>
        End,
    }

    /// <summary>What a conversion tells of its progress.</summary>
    public sealed class ProgressEventArgs : EventArgs
    {
        internal ProgressEventArgs(ProgressStage stage, string text, int percent)
        {
            Stage = stage;
            Text = text;
            Percent = percent;
        }

        /// <summary>Where the conversion is.</summary>
        public ProgressStage Stage { get; private set; }
        /// <summary>What the library says at the start; "" after it.</summary>
        public string Text { get; private set; }
        /// <summary>0 to 100.</summary>
        public int Percent { get; private set; }
    }

    /// <summary>What a conversion that succeeded has to tell.</summary>
    public sealed class ConversionResult
    {
        internal ConversionResult(IReadOnlyList<string> files, IReadOnlyList<string> messages)
        {
            Files = files;
            Messages = messages;
        }

        /// <summary>
        /// The output. Road files, which a DC file gives, stand in its folder and aren't listed; between
        /// coordinate lists (CR5) and DC files the library lists nothing.
        /// </summary>
        public IReadOnlyList<string> Files { get; private set; }
        /// <summary>The library's warnings, in the order they arose.</summary>
        public IReadOnlyList<string> Messages { get; private set; }
    }

    /// <summary>The library refused to convert. There is no output then, and the input is as it was.</summary>
    public sealed class ConversionException : Exception
    {
        internal ConversionException(string input, IReadOnlyList<string> messages)
            : base(messages.Count > 0 ? string.Join(Environment.NewLine, messages) : input + " was not converted")
        {
            Messages = messages;
        }

        /// <summary>
        /// The library's texts, warnings before the reason. Empty between coordinate lists (CR5) and DC
        /// files, where it returns none.
        /// </summary>
        public IReadOnlyList<string> Messages { get; private set; }
    }

    /// <summary>
    /// Converts survey files. Any thread may use any converter at any time. Conversions run side by side,
    /// but those with a handler of progress, or without the test of signatures, run by themselves, since both
    /// are settings of the process. In file names that are bytes, a byte B that is no UTF-8 is the character
    /// U+DC00 + B.
    /// </summary>
    public sealed class Converter
    {
        // Of the descriptions, extensions and filters, in characters with the terminator.
        private const int LongestText = 128;

        // For writing where a conversion changes settings of the process, for reading where it doesn't.
        private static readonly ReaderWriterLockSlim Settings = new ReaderWriterLockSlim();

        private delegate byte TextOfType(int type, byte[] buffer);
        private delegate byte TypesOfType(int type, ref IntPtr list, ref int count);

        /// <summary>
        /// Raised in the midst of a conversion, on its thread. What a handler throws comes out of Convert once
        /// the library has finished; the output then stays.
        /// </summary>
        public event EventHandler<ProgressEventArgs> Progress;

        /// <summary>The unit of coordinate lists (CR5) that are read; metres at first.</summary>
        public LengthUnit CoordinateUnit { get; set; }

        /// <summary>
        /// The path of a job (.job, .pwj) whose points a field log refers to, for conversions of logs to DC
        /// files; null for none.
        /// </summary>
        public string JobOfLog { get; set; }

        /// <summary>Whether signatures of GPS records are tested in conversions to DC files; true at first.</summary>
        public bool TestsGpsSignature { get; set; } = true;

        /// <summary>The number of file types.</summary>
        public static int FileTypeCount
        {
            get { return NativeMethods.cZelGetNumFileTypes(); }
        }

        /// <summary>What a type is called in a dialog.</summary>
        /// <exception cref="ArgumentOutOfRangeException">There is no such type.</exception>
        public static string Description(FileType type)
        {
            return TextOf(NativeMethods.cZelGetDescription, type);
        }

        /// <summary>The extension of a type with its point.</summary>
        /// <exception cref="ArgumentOutOfRangeException">There is no such type.</exception>
        public static string Extension(FileType type)
        {
            return TextOf(NativeMethods.cZelGetExtension, type);
        }

        /// <summary>The filter of a type for a file dialog: parts with "|" between them, "||" at the end.</summary>
        /// <exception cref="ArgumentOutOfRangeException">There is no such type.</exception>
        public static string FileFilter(FileType type)
        {
            return TextOf(NativeMethods.cZelGetFileFilter, type);
        }

        /// <summary>
        /// The types that go together with a type in a conversion, in either direction, in ascending order.
        /// </summary>
        public static IReadOnlyList<FileType> SupportedInputTypes(FileType type)
        {
            return TypesOf(NativeMethods.cZelGetSupportedInputTypes, type);
        }

        /// <summary>The same list, as the library gives it of outputs.</summary>
        public static IReadOnlyList<FileType> SupportedOutputTypes(FileType type)
        {
            return TypesOf(NativeMethods.cZelGetSupportedOutputTypes, type);
        }

        /// <summary>
        /// The type of the file at a path, by its extension and, of .job and .pwj, by its first bytes; null
        /// if none fits. Other files need not exist.
        /// </summary>
        public static FileType? Detect(string path)
        {
            int type = NativeMethods.cZelGetFileType(WideText.Encode(NotNull(path, nameof(path)), nameof(path)));
            return type < 0 ? (FileType?)null : (FileType)type;
        }

        /// <summary>Converts a file into another, both of the types that their names and the input's first bytes tell.</summary>
        /// <exception cref="ArgumentException">A type isn't known.</exception>
        /// <exception cref="ConversionException">The library refuses.</exception>
        public ConversionResult Convert(string input, string output)
        {
            return Convert(input, Known(input, nameof(input)), output, Known(output, nameof(output)));
        }

        /// <summary>Converts a file into another. An output that exists is replaced.</summary>
        /// <param name="input">The path of a file; it need not be writable.</param>
        /// <param name="from">What it is.</param>
        /// <param name="output">The path of the file to be made.</param>
        /// <param name="to">What it shall be.</param>
        /// <exception cref="ConversionException">The library refuses.</exception>
        /// <exception cref="InvalidOperationException">Called from a handler of progress.</exception>
        public ConversionResult Convert(string input, FileType from, string output, FileType to)
        {
            NotNull(input, nameof(input));
            NotNull(output, nameof(output));
            if (Settings.IsWriteLockHeld) throw new InvalidOperationException("A handler of progress can't convert.");
            EventHandler<ProgressEventArgs> handler = Progress;
            if (handler == null && TestsGpsSignature)
            {
                Settings.EnterReadLock();
                try
                {
                    return Call(input, from, output, to, null);
                }
                finally
                {
                    Settings.ExitReadLock();
                }
            }

            Settings.EnterWriteLock();
            try
            {
                NativeMethods.cZelSetGpsSecurityInDcConversions(TestsGpsSignature ? (byte)1 : (byte)0);
                using (ProgressWindow window = handler == null ? null : ProgressWindow.Open(each => handler(this, each)))
                    return Call(input, from, output, to, window);
            }
            finally
            {
                NativeMethods.cZelSetGpsSecurityInDcConversions(1);
                Settings.ExitWriteLock();
            }
        }

        private ConversionResult Call(string input, FileType from, string output, FileType to, ProgressWindow window)
        {
            byte[] inputPath = WideText.Encode(input, nameof(input));
            byte[] outputPath = WideText.Encode(output, nameof(output));
            byte[] job = WideText.Encode(JobOfLog, nameof(JobOfLog));
            IntPtr files = IntPtr.Zero, messages = IntPtr.Zero;
            try
            {
                bool done = NativeMethods.cZelFileConvert(
                    (int)from, inputPath, (int)to, outputPath, ref files, ref messages, (int)CoordinateUnit, job) != 0;
                if (window != null) window.ThrowIfFailed();
                IReadOnlyList<string> texts = WideText.ReadList(messages);
                if (!done) throw new ConversionException(input, texts);
                return new ConversionResult(WideText.ReadList(files), texts);
            }
            finally
            {
                NativeMethods.cZelFreeAfterFileConvert(files, messages);
            }
        }

        private static string NotNull(string value, string parameter)
        {
            if (value == null) throw new ArgumentNullException(parameter);
            return value;
        }

        private static FileType Known(string path, string parameter)
        {
            FileType? type = Detect(NotNull(path, parameter));
            if (type == null) throw new ArgumentException("The type of " + path + " isn't known.", parameter);
            return type.Value;
        }

        private static string TextOf(TextOfType function, FileType type)
        {
            var buffer = new byte[LongestText * WideText.UnitSize];
            if (function((int)type, buffer) == 0) throw new ArgumentOutOfRangeException(nameof(type));
            return WideText.Decode(buffer, WideText.UnitSize);
        }

        private static IReadOnlyList<FileType> TypesOf(TypesOfType function, FileType type)
        {
            IntPtr list = IntPtr.Zero;
            int count = 0;
            if (function((int)type, ref list, ref count) == 0) throw new OutOfMemoryException();
            try
            {
                var numbers = new int[count];
                Marshal.Copy(list, numbers, 0, count);
                return Array.AsReadOnly(Array.ConvertAll(numbers, each => (FileType)each));
            }
            finally
            {
                if (WideText.IsWindows) WindowsMethods.HeapFree(WindowsMethods.GetProcessHeap(), 0, list);
                else PosixMethods.free(list);
            }
        }
    }
}
