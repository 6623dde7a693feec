// The binding, compiled with its sources. BindingTest.exe TOP NAMES runs from any folder: TOP is the
// repository, NAMES a folder with copies of boundary.job under odd names, which csharp_test.py looks into
// afterwards. The clock stands, as in all golden cases.
using System;
using System.Collections.Generic;
using System.IO;
using System.Linq;
using System.Reflection;
using System.Runtime.InteropServices;
using System.Text;
using System.Text.RegularExpressions;
using System.Threading;
using Zelconvert;

static class BindingTest
{
    static string top;
    static int failures, checks;

    static void Check(bool holds, string what)
    {
        ++checks;
        if (holds) return;
        ++failures;
        Console.WriteLine("FAILED: " + what);
    }

    static void Equal(object expected, object made, string what)
    {
        Check(Equals(expected, made), what + "\n  expected: " + expected + "\n      made: " + made);
    }

    static T Throws<T>(Action action, string what) where T : Exception
    {
        try
        {
            action();
        }
        catch (T exception)
        {
            ++checks;
            return exception;
        }
        Check(false, what + " throws no " + typeof(T).Name);
        return null;
    }

    // ---- options, a pair, and files beside the output, as cases of tests/golden have them

    static void Makes(string given, string name, FileType from, FileType to, Action<Converter, string> choose)
    {
        string work = Path.Combine(Path.GetTempPath(), Path.GetRandomFileName());
        Directory.CreateDirectory(work);
        given = Path.Combine(top, "tests/golden", given);
        foreach (string input in Directory.GetFiles(given, "in.*")) File.Copy(input, Path.Combine(work, Path.GetFileName(input)));
        var converter = new Converter();
        choose(converter, work);
        string output = Path.Combine(work, "out" + Converter.Extension(to));
        Equal(output, converter.Convert(Path.Combine(work, name), from, output, to).Files.Single(), given + ": file told");
        foreach (string file in Directory.GetFiles(work))
            Check(File.ReadAllBytes(file).SequenceEqual(File.ReadAllBytes(Path.Combine(given, Path.GetFileName(file)))), given);
        Directory.Delete(work, true);
    }

    static void Options()
    {
        Makes("dc-to-job/ridge-road", "in.dc", FileType.Dc, FileType.Job, (converter, work) => { });
        Makes("job+raw-to-dc/mill-creek", "in.job", FileType.JobRaw, FileType.Dc, (converter, work) => { });
        Makes("raw-to-dc1070/gps-signatures-off", "in.raw", FileType.Raw, FileType.Dc1070,
            (converter, work) => converter.TestsGpsSignature = false);
        Makes("raw-to-dc1070/points-of-an-old-job", "in.raw", FileType.Raw, FileType.Dc1070,
            (converter, work) => converter.JobOfLog = work + "/in.job");
    }

    // ---- declarations: against the header, which is what the DLL is built from as well

    static string TypeInC(Type type, bool isResult)
    {
        if (type == typeof(byte)) return isResult ? "char" : "unsigned char";
        if (type == typeof(int)) return "int";
        if (type == typeof(void)) return "void";
        if (type == typeof(byte[])) return "wchar_t*";
        return type.IsByRef ? "out" : "address";
    }

    static string Simplified(string type)
    {
        type = Regex.Replace(type.Replace("const ", ""), @"\s*\w+$", "").Replace("int32_t", "int").Trim();
        if (type == "wchar_t***" || type == "int**") return "out";
        if (type == "int*") return "out";
        return type == "wchar_t**" || type == "ZelWindowHandle" ? "address" : type;
    }

    static void Declarations()
    {
        string header = File.ReadAllText(Path.Combine(top, "include/zelconvert/zelconvert.h"));
        var prototypes = Regex.Matches(header, @"^ZELCONVERT_API ([^;(]*?)(\w+)\(([^)]*)\) ZELCONVERT_NOEXCEPT;", RegexOptions.Multiline)
            .Cast<Match>().Select(match => match.Groups[2].Value + " " + Simplified(match.Groups[1].Value + " x") + ": "
                + string.Join(", ", match.Groups[3].Value.Split(',').Where(each => each != "void").Select(Simplified)));
        var methods = typeof(NativeMethods).GetMethods(BindingFlags.NonPublic | BindingFlags.Static)
            .Where(method => method.GetCustomAttribute<DllImportAttribute>() != null).ToArray();
        var declared = methods.Select(method => method.Name + " " + TypeInC(method.ReturnType, true) + ": "
            + string.Join(", ", method.GetParameters().Select(each => TypeInC(each.ParameterType, false))));
        Equal(string.Join("\n", prototypes.OrderBy(each => each)), string.Join("\n", declared.OrderBy(each => each)), "prototypes");
        Check(methods.All(each => each.GetCustomAttribute<DllImportAttribute>().CallingConvention == CallingConvention.Cdecl), "cdecl");

        var numbers = Regex.Matches(header, @"^  FT_(\w+) = (\d+)", RegexOptions.Multiline).Cast<Match>()
            .Select(match => match.Groups[1].Value.Replace("_", "").ToLower() + " " + match.Groups[2].Value);
        var named = Enum.GetValues(typeof(FileType)).Cast<FileType>().Select(each => each.ToString().ToLower() + " " + (int)each);
        Equal(string.Join("\n", numbers), string.Join("\n", named), "numbers of the types");
        Check(header.Contains("ZEL_CONVERT_CALLBACK_MESSAGE 0x" + PosixMethods.ProgressMessage.ToString("X") + "u"), "message");
    }

    // ---- text, in the form of both systems

    static void Texts()
    {
        foreach (string text in new[] { "", "a", "\u00e9\ud83d\ude00z", "\udcff\udc80", "\ud83d", "\ud83dx", "\uffff", "\ud800\udc00\udbff\udfff" })
            foreach (int size in new[] { 2, 4 })
                Equal(text, WideText.Decode(WideText.Encode(text, size), size), "text there and back in " + size);
        Equal("01-F6-01-00-FF-DC-00-00-00-00-00-00", BitConverter.ToString(WideText.Encode("\ud83d\ude01\udcff", 4)), "UTF-32");
        Equal("3D-D8-01-DE-FF-DC-00-00", BitConverter.ToString(WideText.Encode("\ud83d\ude01\udcff", 2)), "UTF-16");
        Equal("\ufffd", WideText.Decode(new byte[] { 0, 0, 0x11, 0, 0, 0, 0, 0 }, 4), "a number beyond Unicode");
        Equal(4, WideText.UnitSize, "sizeof(wchar_t)");
    }

    static void Names(string folder)
    {
        foreach (string name in new[] { "plain", "\u00e9t\u00e9", "\ud835\udd38\ud83d\ude00", "\udcff\udc80\ud83d\ude00" })
        {
            string output = folder + "/" + name + ".dc";
            Equal(FileType.Job, Converter.Detect(folder + "/" + name + ".job"), "type of " + name);
            Equal(output, new Converter().Convert(folder + "/" + name + ".job", output).Files.Single(), "file made");
            string absent = folder + "/absent " + name + ".raw";
            var refusal = Throws<ConversionException>(
                () => new Converter().Convert(absent, FileType.Raw, output, FileType.Dc), absent);
            Equal("File " + absent + " does not exist.", refusal.Messages.Single(), "text of a refusal");
        }
    }

    // ---- types, refusals, progress, threads

    static void Types()
    {
        Equal(19, Converter.FileTypeCount, "count");
        Equal(".pwj", Converter.Extension(FileType.PwJob), "extension");
        Check(Converter.Description(FileType.Jxl).Contains("JobXML"), Converter.Description(FileType.Jxl));
        Check(Converter.FileFilter(FileType.Raw).EndsWith("||"), Converter.FileFilter(FileType.Raw));
        Equal("Dc, OldJob, Dc77, Dc1000, Ilj, Dc1070", string.Join(", ", Converter.SupportedOutputTypes(FileType.Ilj)), "outputs of ILJ");
        Equal("Dc, OldJob, Dc77, Dc1000, Ilj, Dc1070", string.Join(", ", Converter.SupportedInputTypes(FileType.Ilj)), "inputs of ILJ");
        Equal(null, Converter.Detect("readme.txt"), "unknown type");
        Throws<ArgumentOutOfRangeException>(() => Converter.Extension((FileType)19), "type 19");
    }

    static void Refusals()
    {
        var converter = new Converter();
        string input = Path.Combine(top, "examples/mill-creek.raw");
        var refusal = Throws<ConversionException>(() => converter.Convert(input, Path.GetTempPath() + "x.cr5"), "raw to CR5");
        Equal("The conversion you specified is not supported.", refusal.Message, "text");
        refusal = Throws<ConversionException>(
            () => converter.Convert("absent.dc", FileType.Dc, Path.GetTempPath() + "x.cr5", FileType.Cr5), "DC to CR5");
        Equal("absent.dc was not converted", refusal.Message, "a refusal without a text");
        Throws<ArgumentNullException>(() => converter.Convert(null, FileType.Raw, "x.dc", FileType.Dc), "null");
        Throws<ArgumentException>(() => converter.Convert("a\0b.raw", FileType.Raw, "x.dc", FileType.Dc), "a zero");
        Throws<ArgumentException>(() => converter.Convert(input, "x.txt"), "an unknown type");
    }

    static void ProgressEvents()
    {
        string input = Path.Combine(top, "examples/boundary.job"), output = Path.GetTempFileName();
        Action<Converter> run = converter => converter.Convert(input, FileType.Job, output, FileType.Dc);
        var told = new List<ProgressEventArgs>();
        var first = new Converter();
        first.Progress += (sender, each) =>
        {
            GC.Collect(); // the library still finds the window and its procedure
            told.Add(each);
            if (each.Stage == ProgressStage.Start) Throws<InvalidOperationException>(() => run(new Converter()), "in a handler");
        };
        run(first);
        Equal("Start Running End", string.Join(" ", told.Select(each => each.Stage).Distinct()), "stages");
        Equal("Start converting...", told[0].Text, "text");
        var percents = told.Where(each => each.Stage == ProgressStage.Running).Select(each => each.Percent).ToList();
        Check(percents.SequenceEqual(percents.OrderBy(each => each)) && percents.Last() > 50 && percents.Last() <= 100, "percents");

        int count = told.Count, calls = 0;
        run(new Converter());
        Equal(count, told.Count, "messages to a window that is gone");
        var failing = new Converter();
        failing.Progress += (sender, each) => { ++calls; throw new NotSupportedException("mine"); };
        Equal("mine", Throws<NotSupportedException>(() => run(failing), "a handler's exception").Message, "its text");
        Equal(1, calls, "calls of a handler that failed");
        File.Delete(output);
    }

    // Two threads that want progress, among others that don't: each hears of its own conversions alone.
    static void Threads()
    {
        int done = 0;
        var heard = new int[8];
        var threads = Enumerable.Range(0, heard.Length).Select(number => new Thread(() =>
        {
            string input = Path.GetTempFileName(), output = Path.GetTempFileName();
            File.Copy(Path.Combine(top, "examples/mill-creek.raw"), input, true);
            var converter = new Converter();
            int self = Thread.CurrentThread.ManagedThreadId;
            if (number < 2)
                converter.Progress += (sender, each) => heard[number] += Thread.CurrentThread.ManagedThreadId == self ? 1 : 1000000;
            for (int i = 0; i < 20; ++i) converter.Convert(input, FileType.Raw, output, FileType.Dc);
            if (new FileInfo(output).Length > 1000) Interlocked.Increment(ref done);
            File.Delete(input);
            File.Delete(output);
        })).ToList();
        threads.ForEach(each => each.Start());
        threads.ForEach(each => each.Join());
        Equal(heard.Length, done, "threads");
        Check(heard[0] > 40 && heard[0] == heard[1] && heard.Skip(2).All(each => each == 0), "told: " + string.Join(" ", heard));
    }

    static int Main(string[] arguments)
    {
        top = arguments[0];
        Declarations();
        Texts();
        Types();
        Refusals();
        ProgressEvents();
        Threads();
        Names(arguments[1]);
        Options();
        Console.WriteLine(checks + " checks, " + failures + " failed");
        return failures == 0 ? 0 : 1;
    }
}
