"""The columns of the lines of a DC file, after docs/formats/dc.md and roads.md, for the scripts of this
folder that write such lines or read them. Nothing here knows the converter.

    write("69KI", "CP 1", 1.0, 2.0, None, "IRON PIN", 1, 1)   a line; fields left out end it early
    read(line)                                                 its fields: numbers, None, texts
"""
import re

NULL = -9.99e27  # and everything not above -9.99e7: a blank
BLANKS = " \t\n\v\f\r"

# After the type and the subtype. A number by its decimals in 16 columns: 5. A text by its place and its
# width: "<16" stands left, ">16" right, ">-16" too but keeps its end when it is cut, "=16" isn't cut.
LAYOUTS = {
    "00": ["<16", ">4", ">16", *[">1"] * 6], "02": [">16"] * 4 + [5, ">16"], "07": [">16", ">16", 9, 9],
    "10": ["<16", *[">1"] * 6], "13": ["<60"], "28": ["<16"], "29": [5] * 5, "30": [5] * 2, "31": [5] * 2,
    "32": [5] * 2, "33": [5] * 2, "34": [5] * 2, "35": [5] * 3, "36": [5] * 3, "37": [5] * 2, "39": ["<16"],
    "44": [5, ">1", 5, ">1", 5, 5, 5, ">1"], "45": [5] * 2, "46": [">1", 5, 5, 5, 5, 5, ">1", ">1", "<16"],
    "49": [">1", 5, 10, 9, 9, 9, 5, 5, 5, 9], "50": [5, 5, 5, 5, 10, 9], "57": [5, ">1"],
    "59": [">2", *[10] * 7], "61": [">8", ">-8", ">2", ">1", "<30", ">-8", 5, 5, 5],
    "64": ["=1", 9, 9, 5, 5, 5, 5, 9, 9, 9], "65": [5, 10],
    "66": [">16", 9, 9, 9, "<16", ">1", ">1", 9, 9], "67": [">16", 9, 9, 9, "<16", ">1", ">1", 9, 9],
    "68": [">16", 9, 9, 5, "<16", ">1", ">1"], "69": [">-16", 5, 5, 5, "<16", ">1", ">1"],
    "70": [">16", ">16", 9, 5, 5, ">-16", ">1", ">1"], "72": ["=8"], "73": [">16"], "74": [">32", ">30"],
    "77": [5, ">16", ">16"], "78": [">1"] * 2, "79": [">16", ">16", 5, 9, 9, "<16", ">1"],
    "80": [">16", ">16", 5, 9, 9, ">-16", ">1", ">1"], "81": [">1", 5, 5, 5, 9, 9, "=32"], "84": [5] * 5,
    "85": [">16", 9, 9, 5, 5, ">-16", ">1", ">1"], "86": [5], "87": ["<20"], "88": ["<20", 5],
    "89": ["<20", "<100"], "92": ["<20", "<20", ">3"], "93": [">-16"], "94": [5],
    "97": [">1", 5, ">1", 5, 5, "<16"], "A0": [">-16", ">1"], "A1": [">-16", ">1", 5, 5, ">16"],
    "A2": [">16", 5], "A5": [5] * 3, "A7": [5, 5, 5, ">17"], "A8": [5],
    "B1": [">16", ">16", ">1", 5, 5, 5], "B3": [5, 5, ">1"], "B4": [5] * 2, "B5": [5, 5, ">1", ">1", "<16"],
    "B7": [">16", ">16", 9, 9, 9, 9, 5, 5, ">16", ">1"], "B8": [5] * 4, "B9": [5, ">1", "<16", ">1", "<16"],
    "C4": [">16", ">16", ">16", *[9] * 6, ">2", ">2"],
    "C6": [">2", ">1", 5, 5, 5, 5, ">4", 5, 5, ">4", 5, ">4", 5, ">1"], "C8": [">1", "<32", "<32", "=-32"],
    "C9": [">16", ">1", ">17", ">16", ">16", 5, ">4"],
    "D0": ["=1", 9, 9, 5, 5, 5, 5, 9, 9, 9, *[">1"] * 4, "<32", "=-32"], "D3": [*[5] * 6, ">16"],
    "D4": [">1", ">1", ">16"], "D5": [9, 9, 5, 9, 5, 5], "D8": ["=-32"],
    "D9": [">16", ">16", 5, 9, 9, "<16", ">1", 5, 9, 9], "E0": [">16", 5, ">16", ">1"],
    "E1": [">16", ">16", 9, 9, ">16"], "E2": [">-8", ">-10", ">3", ">1", "<-30", ">-10", 5, 5, 5],
    "E4": [">16", ">10", ">16", ">1", 5, *[">16"] * 4],
}


def number(value, decimals, width=16):
    """Blank when null, cut on the right when too long. A text stands as it is."""
    if isinstance(value, str):
        return value.rjust(width)
    if value is None or not value > -9.99e7:
        return " " * width
    return ("%*.*f" % (width, decimals, value))[:width]


def column(form, value):
    if isinstance(form, int):
        return number(value, form)
    place, width = form[0], abs(int(form[1:]))
    text = "" if value is None else str(value)
    if place != "=":
        text = text[-width:] if form[1] == "-" else text[:width]
    left = place == "<" or form.startswith("=-")
    return text.ljust(width) if left else text.rjust(width)


def write(head, *fields):
    return head + "".join(map(column, LAYOUTS[head[:2].upper()], fields))


def read_number(text):
    """None for a blank; 0 for what isn't a number, and what stands before the rest of one."""
    text = text.strip(BLANKS)
    found = re.match(r"[+-]?(\d+\.?\d*|\.\d+)([eE][+-]?\d+)?", text)
    return None if not text else float(found.group()) if found else 0.0


def read(line):
    """All fields, without the blanks around a text."""
    fields, at = [], 4
    for form in LAYOUTS[line[:2].upper()]:
        width = 16 if isinstance(form, int) else abs(int(form[1:]))
        text = line[at:at + width]
        fields.append(read_number(text) if isinstance(form, int) else text.strip(BLANKS))
        at += width
    return fields
