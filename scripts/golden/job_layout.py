"""The blocks of a job file, after docs/formats/job.md and coordinate-system.md, for the scripts of this
folder that write jobs. Nothing here knows the converter.

A block is a table of its fields: offset and form, which is that of the module struct, or a number of units
and "u" for a text. Bytes that no field names are zero.

    pack(POINT, 100, name="CP 1", place=(1.0, 2.0, NULL))   the bytes
"""
import struct

NULL = -9.99e27
SIGNATURES = {"job": b"Zelmont Geodata Ltd Job File", "pwj": b"Corvane Surveying Job File  "}

HEADER = {"created": (0, "8H"), "flags": (16, "I"), "scale": (20, "d"), "distanceUnit": (28, "H"),
          "angleUnit": (30, "H")}
OLD_HEADER = {"created": (4, "8H"), "indices": (24, "5H"), "flags": (1078, "I"), "scale": (1082, "d"),
              "secondScale": (1090, "d"), "distanceUnit": (1098, "H"), "angleUnit": (1102, "H")}
SYSTEM = {
    "horizontalType": (0, "H"), "verticalType": (4, "H"), "family": (6, "h"), "zoneName": (8, "33u"),
    "zoneGroup": (74, "33u"), "datumName": (140, "33u"), "projectionId": (404, "H"),
    "projection": (406, "9d"), "flags": (478, "4H"), "gridFile": (486, "261u"), "shiftFile": (1008, "261u"),
    "orientation": (1530, "4B"), "site": (1534, "6d"), "datumKind": (1582, "H"), "ellipsoid": (1584, "2d"),
    "datum": (1600, "7d"), "horizontal": (3226, "6d"), "vertical": (3274, "5d"), "geoidFile": (3314, "261u"),
    "parameters": (3906, "14d")}
NO_SYSTEM = {
    "family": -2, "projectionId": 0, "projection": (NULL,) * 9, "flags": (0xFFFE,) * 4,
    "orientation": (0,) * 4, "site": (NULL, NULL, 0.0, 1.0, 0.0, 0.0), "datumKind": 0,
    "ellipsoid": (NULL, NULL), "datum": (0.0, 0.0, 0.0, NULL, NULL, NULL, 0.0), "horizontal": (NULL,) * 6,
    "vertical": (NULL,) * 5, "parameters": (NULL,) * 14}

POINT = {"name": (0, "17u"), "description": (34, "17u"), "place": (68, "3d"), "layer": (92, "I")}
LAYER = {"id": (0, "I"), "name": (4, "17u"), "flags": (38, "H")}
ROAD = {"name": (0, "9u"), "number": (18, "i"), "station": (22, "d"), "start": (64, "3d")}
ELEMENT = {"road": (0, "I"), "station": (38, "d"), "start": (80, "3d")}


def pack(table, size, **fields):
    block = bytearray(size)
    for name, value in fields.items():
        at, form = table[name]
        if form.endswith("u"):
            data = value.encode("utf-16-le")
            assert len(data) < 2 * int(form[:-1])
        else:
            data = struct.pack("<" + form, *(value if isinstance(value, tuple) else (value,)))
        block[at:at + len(data)] = data
    return bytes(block)


def record(kind, payload):
    return struct.pack("<II", kind, len(payload)) + payload
