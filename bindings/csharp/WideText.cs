using System;
using System.Collections.Generic;
using System.Runtime.InteropServices;
using System.Text;

namespace Zelconvert
{
    /// <summary>
    /// Text in the wchar_t of C: two bytes of UTF-16 on Windows, four of UTF-32 elsewhere. Halves of
    /// surrogate pairs that stand alone pass as they are, since U+DC80 to U+DCFF is how the library names
    /// bytes of a file name that are no UTF-8; .NET's own encodings would replace them.
    /// </summary>
    internal static class WideText
    {
        internal static readonly bool IsWindows = Environment.OSVersion.Platform == PlatformID.Win32NT;

        /// <summary>sizeof(wchar_t), in bytes.</summary>
        internal static readonly int UnitSize = IsWindows ? 2 : 4;

        /// <summary>The text with a terminator, or null for null.</summary>
        /// <exception cref="ArgumentException">The text has a zero in it, where C would end it.</exception>
        internal static byte[] Encode(string text, string parameter)
        {
            if (text != null && text.IndexOf('\0') >= 0)
                throw new ArgumentException("The text has a character of the number 0.", parameter);
            return text == null ? null : Encode(text, UnitSize);
        }

        internal static byte[] Encode(string text, int unitSize)
        {
            var bytes = new List<byte>((text.Length + 1) * unitSize);
            for (int i = 0; i < text.Length; ++i)
            {
                bool isPair = unitSize == 4 && i + 1 < text.Length && char.IsSurrogatePair(text[i], text[i + 1]);
                Append(bytes, isPair ? char.ConvertToUtf32(text[i], text[++i]) : text[i], unitSize);
            }
            Append(bytes, 0, unitSize);
            return bytes.ToArray();
        }

        /// <summary>The text of whole units, up to the first zero or the end.</summary>
        internal static string Decode(byte[] bytes, int unitSize)
        {
            var text = new StringBuilder(bytes.Length / unitSize);
            for (int at = 0; at + unitSize <= bytes.Length; at += unitSize)
            {
                uint unit = UnitAt(bytes, at, unitSize);
                if (unit == 0) break;
                if (unit <= 0xFFFF) text.Append((char)unit);
                else if (unit <= 0x10FFFF) text.Append(char.ConvertFromUtf32((int)unit));
                else text.Append('\uFFFD');
            }
            return text.ToString();
        }

        /// <summary>The zero-terminated text at an address that isn't null.</summary>
        internal static string Read(IntPtr address)
        {
            int units = 0;
            while (!IsZero(address, units * UnitSize)) ++units;
            var bytes = new byte[units * UnitSize];
            Marshal.Copy(address, bytes, 0, bytes.Length);
            return Decode(bytes, UnitSize);
        }

        /// <summary>The texts of an array that ends with null. Null is an empty array.</summary>
        internal static IReadOnlyList<string> ReadList(IntPtr array)
        {
            var texts = new List<string>();
            IntPtr text;
            for (int at = 0; array != IntPtr.Zero && (text = Marshal.ReadIntPtr(array, at)) != IntPtr.Zero; at += IntPtr.Size)
                texts.Add(Read(text));
            return texts.AsReadOnly();
        }

        private static bool IsZero(IntPtr address, int offset)
        {
            return (UnitSize == 2 ? Marshal.ReadInt16(address, offset) : Marshal.ReadInt32(address, offset)) == 0;
        }

        // Both systems are little-endian.
        private static void Append(List<byte> bytes, int value, int unitSize)
        {
            for (int i = 0; i < unitSize; ++i) bytes.Add((byte)(value >> (8 * i)));
        }

        private static uint UnitAt(byte[] bytes, int at, int unitSize)
        {
            return unitSize == 2 ? BitConverter.ToUInt16(bytes, at) : BitConverter.ToUInt32(bytes, at);
        }
    }
}
