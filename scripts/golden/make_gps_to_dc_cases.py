#!/usr/bin/env python3
"""Golden cases of raw to DC for the GPS and coordinate system records of a log.

Like make_raw_to_dc_cases.py, whose lines it uses: each record of a log with what it becomes, worked
out by hand. Computed vectors stand on the equator at longitude 0, where geocentric differences are
differences of height and no machine's sine disturbs their ninth decimal.
"""
import math

import make_raw_to_dc_cases as base
from make_raw_to_dc_cases import NULL, add, dms, mode, n5, n9, note, number, p69

base.CASES.clear()

WARNING = "Warning: This is not Kestrum GPS. No GPS vectors will be generated for this rover setup.\n"
LONG = ("Warning: The point name %s is longer than 12 characters and the GPS point name cannot be "
        "generated. This base line measurements will not be converted.\n")


def p66(subtype, name, lat, lon, height, code, method=1, cls="1", h=0.0, v=0.0):
    return "66%s%16s%16s%16s%16s%-16.16s%d%s%16s%16s" % (subtype, name, n9(lat), n9(lon), n9(height),
                                                     code, method, cls, n9(h), n9(v))


def p67(subtype, name, x, y, z, code, method=1, cls="1", h=0.0, v=0.0):
    return "67%s%16s%16s%16s%16s%-16s%d%s%16s%16s" % (subtype, name, n9(x), n9(y), n9(z),
                                                     code[-16:], method, cls, n9(h), n9(v))


def a57(subtype, height, kind):
    return "57%s%16s%d" % (subtype, n5(height), kind)


def e2(subtype, kind, serial, number_, id_, antenna, antenna_serial, ta, ho, vo):
    return "E2%s%8s%10s%3d%d%-30s%10s%16.5f%16.5f%16.5f" % (
        subtype, kind[-8:], serial[-10:], number_, id_, antenna[-30:], antenna_serial[-10:], ta, ho, vo)


def c6(subtype, satellites, relative, dops, epochs, h, v, start, end, flag):
    return "C6%s%2d%d%s%4d%16s%16s%4d%16s%4d%16s%d" % (
        subtype, satellites, relative, "".join("%16s" % n5(d) for d in dops), epochs, n5(h), n5(v),
        start[0], n5(start[1]), end[0], n5(end[1]), flag)


def c59(subtype, satellites, values):
    return "59%s%2d" % (subtype, satellites) + "".join("%16s" % number(v, 10) for v in values)


def p73(name):
    return "73BA%16s" % name


def hash_of(first, second):
    """The signature of two records."""
    if len(first) > 512:
        return 0
    state = sum(map(ord, first)) & 0xFFFFFFFF
    total = 0
    for c in second[:512]:
        state = (state * 0x343FD + 0x269EC3) & 0xFFFFFFFF
        total = (total + ord(c) * state) & 0xFFFFFFFF
    return total


def signed(receiver, equipment):
    return "%s*%d" % (equipment, hash_of(receiver, equipment))


def start(name, au=0, un=1, version=3):
    units = {0: 2, 1: 1, 2: 3}
    return [("JB,NM%s,DT03-13-2026,TM07:08:09" % name, []),
            ("MO,AD0,UN%d,SF1.0,EC0,EO0,AU%d" % (un, au),
             mode(version, name, "03-13-2026 07:08", angle=au + 1, distance=units[un]))]


ROVER = "RX,DCROVER,RA2.0"
ROVER_EQ = "EQ,DCROVER,RXR,RS1,AN0,AI1,ATA,TSB,TA0,HO0,VO0"
EQ_LINE = e2("XD", "R", "1", 0, 1, "A", "B", 0, 0, 0)
BASE = [("RX,DCBASE,RA1.5", []),
        ("BP,PNB,LA0.0,LN0.0,HT100.0,SG0",
         [p66("BA", "B", 0, 0, 101.5, "Base Point "), p73("B")]),
        (ROVER, []), (signed(ROVER, ROVER_EQ), [EQ_LINE])]
EP = "EP,LA0.0,LN0.0,HT%s,GM%d,CL1,RH0.01,RV0.02"


def ep(height, method=1):
    return (EP % (height, method), [])


GQ = ("GQ,DCROVER,SV9,DR0,PD1.5,DH1.25,DV,RM2,NE60,RH0.5,RV0.25,WS2200,FS100.5,WE2200,ES160.5,IM3")
C6 = c6("XD", 9, 1, (1.5, 1.25, NULL, 2), 60, 0.5, 0.25, (2200, 100.5), (2200, 160.5), 3)


def add_rover():
    """Positions, vectors and quality in all their orders; deleted points."""
    xyz = "DX1.25,DY-2.5,DZ3.75,--"
    add("raw", "dc1070", "gps-rover", start("ROVER") + BASE + [
        ep("102.5"),
        ("GS,PN1,N 1,E 2,EL3,--computed vector",  # 102.5 + 2 against 101.5
         [p67("XD", "1", 3, 0, 0, "computed vector", h=0.01, v=0.02)]),
        ep("102.5", 2), (GQ, []),
        ("GS,PN2,N 1,E 2,EL3,--a position of more than 16",
         [p66("XD", "2", 0, 0, 104.5, "a position of more than 16", 2, h=0.01, v=0.02), C6]),
        ("BL,DCROVER,PN3,%sa vector of more than 16,GM4,CL2,HP0.1,VP0.2" % xyz,
         [p67("XD", "3", 1.25, -2.5, 3.75, "a vector of more than 16", 4, "2", 0.1, 0.2)]),
        (GQ, [C6]),
        ("CV,DCROVER,SV8,SC1.5,XX1,XY2,XZ3,YY4,YZ5,ZZ6", [c59("XD", 8, (1.5, 1, 2, 3, 4, 5, 6))]),
        ("CV,DCROVER,SV8,SC1.5,XX1,XY2,XZ3,YY4,YZ5", []),  # no ZZ: passed over
        ("GS,PN3,N 1,E 2,EL3,--its vector is written", []),
        ep("100"),
        ("GS,PN4,N 1,E 2,EL3,--deleted", [p67("XD", "4", 0.5, 0, 0, "deleted", 1, "6", 0.01, 0.02)]),
        ("BL,DCROVER,PN4,%s,GM1,CL9,HP0,VP0" % xyz,
         [p67("XD", "4", 1.25, -2.5, 3.75, "", 1, ">", 0, 0)]),
        ("OC,OP1,N 1,E 2,EL3,--no 69: a GPS result", ["E0NM%16s%-16s%16s1" % ("1", "%16.5f" % 0, "1.0")]),
        ("OB", []),
        ("OC,OP4,N 1,E 2,EL3,--69: deleted", [p69("4", 1, 2, 3, "69: deleted"),
                                             "E0NM%16s%-16s%16s1" % ("4", "%16.5f" % 0, "1.0")]),
        ("DP,PN4", []),
        # Any class may stand in a log; its character is the sum's lowest 16 bits.
        ((EP % ("102.5", 1)).replace("CL1", "CL65537"), []),
        ("GS,PN5,N 1,E 2,EL3,--", [p67("XD", "5", 3, 0, 0, "", h=0.01, v=0.02)]),
        ("RX,DCROVER,RA1", []),
        ("EQ,DCSTATIC,RXR,RS1,AN0,AI1,ATA,TSB,TA0,HO0,VO0*1", []),
    ], "A rover's positions and vectors, their quality and covariance, one deleted point; the last "
       "rover isn't signed for.", WARNING)


def add_kinds():
    """GP: what a point was measured for."""
    vector = "BL,DCROVER,PN%s,DX1,DY2,DZ3,--,GM1,CL1,HP0,VP0"
    long13 = "abcdefghijklm"
    add("raw", "dc1070", "gps-point-kinds", start("KINDS") + BASE + [
        ep("102.5"),
        ("GP,PN1,PTDATA", [p67("XD", "1", 3, 0, 0, " ", h=0.01, v=0.02)]),
        ep("102.5"),
        ("GP,PNabcdefghijkl,PTCONTROL", [p67("XD", "GPS_abcdefghijkl", 3, 0, 0, " ", h=0.01, v=0.02)]),
        ep("102.5"),
        ("GP,PN2,PTnone of these", [p67("XD", "GPS_2", 3, 0, 0, " ", h=0.01, v=0.02)]),
        ep("102.5"), ("GP,PN%s,PTCONTROL" % long13, []),
        ("GP,PN3,PTUSER_INPUT", []),
        (vector % "4", [p67("XD", "GPS_4", 1, 2, 3, "")]),
        ep("102.5"), (vector % "4", [p67("XD", "GPS_4", 1, 2, 3, "")]),
        ("GP,PN4,PTCONTROL", []),
        (vector % long13, []), ("CV,DCROVER,SV8,SC1,XX1,XY2,XZ3,YY4,YZ5,ZZ6", []),
        ("CV,DCROVER,SV8,SC1,XX1,XY2,XZ3,YY4,YZ5,ZZ6", [c59("XD", 8, (1, 1, 2, 3, 4, 5, 6))]),
        ("GP,PN%s,PTCONTROL" % long13, []),
        ep("102.5"), ("GP,PN5,PTCONTROL", [p67("XD", "GPS_5", 3, 0, 0, " ", 1, ";", 0.01, 0.02)]),
        ("DP,PN5", []),
    ], "GP records: control points get a name of their own, if it has room.", LONG % long13 * 3)


def add_base_roles():
    """GETBASE, VRSBASE, STATIC, antennas."""
    add("raw", "dc1070", "gps-bases", start("BASES") + [
        ("EQ,DCBASE", []), ("BP,PNB", []), ("BL", []), ("GQ", []), ("GO", []),  # no receiver yet
        ("RX,DCSTATIC,RA1", []), ("AH,DCSTATIC,MA1,ME0,RA2", []), ("EQ,DCSTATIC", []),
        ("RX,DCGETBASE,RA1.25", [a57("BA", 1.25, 1)]),
        ("EQ,DCGETBASE,RXreceiver type,RSserial 123456,AN7,AI1,ATantenna,TSantenna 7654321,TA1,HO2,VO3",
         [e2("BA", "receiver type", "serial 123456", 7, 1, "antenna", "antenna 7654321", 1, 2, 3)]),
        ("AH,DCGETBASE,MA1.5,ME0,RA1.75", [a57("BA", 1.5, 2)]),
        ("BP,PNB1,LA10.3000,LN-20.1500,HT100,SG0",
         [p66("BA", "B1", 10.5, -20.25, 101.75, "Base Point "), p73("B1")]),
        ("RX,DCVRSBASE,RA0.5", [a57("BA", 0.5, 1)]),
        ("BP,PNB2,LA0,LN0,HT100,SG0", []),
        (ROVER, []), ("AH,DCROVER,MA,ME1,RA1.5", [a57("XD", NULL, 2)]),
        ("BL,DCROVER,PN1,DX1,DY2,DZ3,--,GM1,CL1,HP0,VP0", []),
        ("CV,DCROVER,SV8,SC1,XX1,XY2,XZ3,YY4,YZ5,ZZ6", []),
        ep("102.5"),
        ("GS,PN1,N 1,E 2,EL3,--virtual base", [p66("XD", "1", 0, 0, 104, "virtual base", 1, "1", 0.01, 0.02)]),
    ], "Bases that were found, virtual ones and static receivers; antenna heights.")


def add_localization():
    """EE, CT and RP; a GO in both forms."""
    long13 = "abcdefghijklm"
    add("raw", "dc1070", "gps-localization", start("LOCAL") + [
        ("EE", []), ep("50", 3),
        ("GP,PNin,PTUSER_INPUT", [a57("KI", 0, 1), p66("KI", "in", 0, 0, 50, "", 3), a57("KI", 0, 1)]),
        ("EE", []), ep("51", 3),
        ("GP,PNout,PTUSER_INPUT", [a57("KI", 0, 1), p66("KI", "out", 0, 0, 51, "", 3, "6"), a57("KI", 0, 1)]),
        ("CT,PN %s ,DM3,RH3,RV4" % long13, []),
        ("CT,PN 7 ,DM3,RH3,RV4", ["B1CB%16s%16s3%16s%16s%16s" % ("GPS_7", "7", n5(3), n5(4), n5(5))]),
        ep("52"),
        ("RP,PN7,N 1,E 2,EL3,--rover", [a57("KI", 0, 1), p66("KI", "GPS_7", 0, 0, 52, ""),
                                       a57("KI", 0, 1), p69("7", 1, 2, 3, "rover")]),
        ("RP,PN7,N 1,E 2,EL3,--no control in front", []),
        ("RP,PN%s,N 1,E 2,EL3,--" % long13, []),
        ("CT,PN8,DM12,RH,RV4", ["B1CB%16s%16s9%16s%16s%16s" % ("GPS_8", "8", n5(NULL), n5(4), n5(NULL))]),
        ("GO,PNo,AZ1", []),
        ] + BASE + [
        ep("102.5"),
        ("GS,PN9,N 1,E 2,EL3,--", [p67("XD", "9", 3, 0, 0, "", h=0.01, v=0.02)]),
        ("GO,PN10,AZ45.3000,ZE60.0000,SD10,HI0,HR0,--vector",
         ["70KI%16s%16s%16s%16s%16s%16s11" % ("9", "10", n9(45.5), n5(10 * math.sin(math.pi / 3)), n5(5), "vector")]),
        ("GO,PN11,AZ45.3000,ZE60.0000,SD10,HI1.5,HR2,--a shot with a long note",
         ["93KI%16s" % "9", "86KI%16s" % n5(1.5), "94KI%16s" % n5(2),
          "85KI%16s%16s%16s%16s%16.5f%16s16" % ("11", n9(45.5), n9(60), n5(10), 0, "t with a long note"[-16:])]),
        ("DP,PNout", []), ("DP,PN11", []),
    ], "Stored GPS points, control points of a localization and offset shots.", LONG % long13 * 2)


def add_states():
    """What one record leaves for those behind it."""
    xyz = "DX1,DY2,DZ3,--,GM1,CL1,HP0,VP0"
    gs = "GS,PN%s,N 1,E 2,EL3,--"
    computed = lambda name, up, cls="1", code="": p67("XD", name, up, 0, 0, code, 1, cls, 0.01, 0.02)
    add("raw", "dc1070", "gps-states", start("STATES") + [
        # A stored point that isn't keyed in goes the way of a rover's, and EE stays in force.
        ("EE", []), ep("50", 2),
        ("GP,PNa,PTCHECK", [p66("KI", "a", 0, 0, 50, " ", 2, "1", 0.01, 0.02)]),
        ("GP,PNb,PTUSER_INPUT", []), ep("51", 3),
        ("GP,PNc,PTUSER_INPUT", [a57("KI", 0, 1), p66("KI", "c", 0, 0, 51, "", 3), a57("KI", 0, 1)]),
        ("EP,bad and passed over", []), ("GP,bad", []),
    ] + BASE + [
        # The antenna is added, and the class raised, for each record that is made of a position.
        ep("102.5"), ("GP,PN1,PTDATA", [computed("1", 3, code=" ")]), (gs % "1", [computed("1", 5)]),
        ep("102.5"), ("GP,PNd,PTDATA", [computed("d", 3, ";", " ")]), (gs % "d", [computed("d", 5, "@")]),
        # One that waits for a vector. Behind the end of its shot a quality is of the next one, which
        # a position that is keyed in doesn't take; then it is gone.
        ep("102.5"), (GQ, []),
        ("BL,DCKI,PN2,%s" % xyz, [p67("KI", "2", 1, 2, 3, ""), C6]),
        ("CV,DCBASE,SV8,SC1,XX1,XY2,XZ3,YY4,YZ5,ZZ6", [c59("BA", 8, (1, 1, 2, 3, 4, 5, 6))]),
        (gs % "2", []),
        (GQ.replace("DCROVER", "DCBASE").replace("SV9", "SV10"), []),
        ("EE", []), ep("50"),
        ("GP,PNe,PTUSER_INPUT", [a57("KI", 0, 1), p66("KI", "e", 0, 0, 50, ""), a57("XD", 0, 1)]),
        ep("102.5"), (gs % "3", [computed("3", 3)]),
        ep("102.5"), (gs % "3", [computed("3", 3)]),
        # Known by GPS, then shot as well; a control point is known by the name that was written.
        ("CT,PN1,DM3,RH,RV", ["B1CB%16s%16s3%48s" % ("GPS_1", "1", "")]),
        ("RP,PN1,N 1,E 2,EL3,--known", [p69("1", 1, 2, 3, "known")]),
        ("GO,PN1,AZ0,ZE90.0000,SD10,HI0,HR1,--",
         ["93KI%16s" % "3", "86KI%16s" % n5(0), "94KI%16s" % n5(1),
          "85KI%16s%16s%16s%16s%16.5f%16s11" % ("1", n9(0), n9(90), n5(10), 0, "")]),
        ("CT,PN1,DM3,RH,RV", ["B1CB%16s%16s3%48s" % ("GPS_1", "1", "")]),
        ("RP,PN1,N 1,E 2,EL3,--known", []),
        ep("102.5"), ("GP,PN4,PTCONTROL", [computed("GPS_4", 3, code=" ")]),
        ("CT,PN4,DM2,RH0,RV0", ["B1CB%16s%16s2%16s%16s%16s" % ("GPS_4", "4", n5(0), n5(0), n5(0))]),
        ep("60"),
        ("RP,PNabcdefghijklm,N 1,E 2,EL3,--", []),
        ("RP,PN4,N 1,E 2,EL3,--", [a57("KI", 0, 1), p66("KI", "GPS_4", 0, 0, 60, ""), a57("XD", 0, 1),
                                  p69("4", 1, 2, 3, "")]),
        # The role is that of the latest antenna or equipment; its height is no rover's.
        ("AH,DCBASE,MA1,ME0,RA4", [a57("BA", 4, 1)]),
        ep("102.5", 2), (gs % "5", [p66("BA", "5", 0, 0, 104.5, "", 2, "1", 0.01, 0.02)]),
        ("AH,DCother,MA1,ME0,RA", [a57("XD", NULL, 1)]),
        # A rover's equipment of another role is tested too.
        (ROVER, []), (ROVER_EQ.replace("DCROVER", "DCSTATIC") + "*1", []),
        (gs % "6", []), (GQ, []),
        ("DP,PNd", []),
    ], "What stays for later records: heights, classes, qualities, names and roles.",
        LONG % "abcdefghijklm" + WARNING)


def add_signatures():
    good = signed(ROVER, ROVER_EQ)
    position = ("GS,PN1,N 1,E 2,EL3,--", [])
    add("raw", "dc1070", "gps-signatures", start("SIGNED") + BASE[:2] + [
        (ROVER, []), (ROVER_EQ, []), position,                    # none
        (ROVER, []), (good[:-1] + str((int(good[-1]) + 1) % 10), []), position,  # wrong
        ("  " + ROVER, []), (good, [EQ_LINE]),                   # no RX, so no rover to test
        (ROVER + "  ", []), (good, [EQ_LINE]),                   # blanks don't count
        (ROVER, []), ("--not next to each other", [note("not next to each other")]),
        (ROVER_EQ + "*0", [EQ_LINE]),                            # VO ends at the *
        ep("102.5", 2), ("GS,PN2,N 1,E 2,EL3,--",
                         [p66("XD", "2", 0, 0, 104.5, "", 2, "1", 0.01, 0.02)]),
    ], "Signatures: none, a wrong one, a good one, and a record that isn't tested.", WARNING * 2)
    add("raw", "dc1070", "gps-signatures-off", start("OFF") + BASE[:2] + [
        (ROVER, []), (ROVER_EQ, [EQ_LINE]),
        ep("102.5", 2), ("GS,PN2,N 1,E 2,EL3,--",
                         [p66("XD", "2", 0, 0, 104.5, "", 2, "1", 0.01, 0.02)]),
    ], "Without the test of signatures.")
    base.CASES["raw", "dc1070", "gps-signatures-off"]["args.txt"] = b"gps-security 0\n"


def add_units():
    """Metres first, then feet: every length is scaled but covariances, scales and flattenings."""
    f = 0.3048
    add("raw", "dc1000", "gps-change-of-units", start("UNITS", version=2) + [
        ("MO,AD0,UN0,SF1.0,EC0,EO0,AU1", ["78NM11"]),
        ("RX,DCBASE,RA10", []),
        ("BP,PNB,LA0.3000,LN0,HT100,SG0", [p66("BA", "B", 0.5, 0, 110 * f, "Base Point "), p73("B")]),
        (ROVER, []),
        ("EQ,DCROVER,RXR,RS1,AN1,AI1,ATA,TSB,TA10,HO20,VO30*0", []),
        (ROVER, []), ("AH,DCROVER,MA10,ME0,RA20", [a57("XD", 20 * f, 1)]),
        ("BL,DCROVER,PN1,DX10,DY20,DZ30,--,GM1,CL1,HP1,VP2",
         [p67("XD", "1", 10 * f, 20 * f, 30 * f, "", h=f, v=2 * f)]),
        ("CV,DCROVER,SV8,SC1,XX1,XY2,XZ3,YY4,YZ5,ZZ6", [c59("XD", 8, (1, 1, 2, 3, 4, 5, 6))]),
        (GQ, [c6("XD", 9, 1, (1.5, 1.25, NULL, 2), 60, 0.5 * f, 0.25 * f, (2200, 100.5), (2200, 160.5), 3)]),
        ep("100", 2),
        ("GS,PN2,N 10,E 20,EL30,--", [p66("XD", "2", 0, 0, 120 * f, "", 2, "1", 0.01 * f, 0.02 * f)]),
        ("GO,PN3,AZ50,ZE100,SD10,HI1,HR0,--",
         ["93KI%16s" % "2", "86KI%16s" % n5(f), "94KI%16s" % n5(0),
          "85KI%16s%16s%16s%16s%16.5f%16s11" % ("3", n9(45), n9(90), n5(10 * f), 0, "")]),
        ("ES,RD100,IF300", ["65KI%16s%16s" % (n5(100 * f), number(300, 10))]),
        ("PJ,TP2056,LA1.3000,LN-2.1500,HT10,N 20,E 30,EL40,SC0.5,OO50,OT60",
         ["64KI?%16s%16s%16s%16s%16s%16s%16s%16s%16s" % (
             n9(1.5), n9(-2.25), n5(10 * f), n5(20 * f), n5(30 * f), n5(40 * f), n9(0.5), n9(45), n9(0))]),
    ], "Feet and gons behind metres and degrees.",
        "Warning: There are conflicting MO records in the raw data file. The most recent has been "
        "used.\n" + WARNING)


def projection(letter, fields):
    return "64KI%s%16s%16s%16s%16s%16s%16s%16s%16s%16s" % ((letter,) + fields)


def add_system():
    """Every coordinate system record."""
    pj = "LA10.3000,LN-20.1500,HT1,N 2,E 3,EL4,SC0.9996,OO30.3000,OT-40.1500"
    fields = (n9(10.5), n9(-20.25), n5(1), n5(2), n5(3), n5(4), n9(0.9996), n9(30.5), n9(-40.25))
    letters = ">B9C547@?:2<;13DEF61GH"
    records = start("SYSTEM", version=1) + [
        ("ES,RD6378137,IF298.257223563", ["65KI%16s%16s" % (n5(6378137), number(298.257223563, 10))]),
        ("ES,RD,IF", ["65KI%16s%16s" % (" ", " ")]),
        ("ST,LA10.3000,LN-20.1500,HT1,SC0.5,N 2,E 3",
         ["D5KI%16s%16s%16s%16s%16s%16s" % (n9(10.5), n9(-20.25), n5(1), n9(0.5), n5(3), n5(2))]),
        ("ST,LA,LN,HT,SC,N ,E ", ["D5KI" + 96 * " "]),
    ]
    for k, letter in enumerate(letters):
        row = fields
        if k in (8, 19):
            row = fields[:7] + (n9(30.5), n9(0))
        records.append(("PJ,TP%d,%s" % (2048 + k, pj), [projection(letter, row)]))
    records += [
        ("PJ,TP2059,LA-90.0,LN0,HT,N ,E ,EL,SC,OO,OT",
         [projection("=", (n9(-90), n9(0)) + 7 * (" ",))]),
        ("PJ,TP2047,%s" % pj, [projection("1", fields)]),
        ("PJ,TP2070,%s" % pj, [projection("1", fields)]),
        ("PE,TP2063,%s,CT0,AF0,RY1,AE3,FOgrid,FTshift" % pj,
         ["D0KI" + projection("D", fields)[4:] + "122" + "3%-32s%-32s" % ("grid", "shift")]),
        ("PE,TP2064,%s,CT2,AF5,RY2,AE7,FO,FT" % pj,
         ["D0KI" + projection("E", fields)[4:] + "211" + "4%-32s%-32s" % ("", "")]),
    ]
    for kind, code in ((513, 3), (514, 2), (515, 2), (516, 3)):
        records.append(("DT,DA%d,RD1,IF2,OX0.3000,OY-0.3000,OZ,LX4,LY-5,LZ,SP6" % kind,
                        ["49KI%d%16s%16s%16s%16s%16s%16s%16s%16s%16s" % (
                            code, n5(1), number(2, 10), n9(0.5), n9(-0.5), " ", n5(4), n5(-5), " ", n9(6))]))
    records += [
        ("DG,FIgrid.dgf", ["74KI%32s%30s" % ("grid.dgf", "")]),
        ("HA,N 1,E 2,TN3,TH99,TE4,RT-0.3000,SC1.5",
         ["50KI%16s%16s%16s%16s%16s%16s" % (n5(1), n5(2), n5(3), n5(4), number(-0.5, 10), n9(1.5))]),
        ("VA,PV2,N 1,E 2,LZ3,SO4000000,SA-5000000,GNgeoid.ggf",
         ["81KI2%16s%16s%16s%16s%16s%32s" % (n5(1), n5(2), n5(3), n9(4), n9(-5), "geoid.ggf")]),
        ("VA,PV9,N ,E ,LZ,SO,SA,GN", ["81KI1" + 112 * " "]),
        ("CS,CO3,ZGgroup,ZNzone,DNdatum", ["C8KI3%-32s%-32s%-32s" % ("group", "zone", "datum")]),
        ("CS,CO7,ZG,ZN,DN", ["C8KI4" + 96 * " "]),
        ("CG,AO2,GO4", ["D4NM24%16s" % ""]), ("CG,AO1,GO1", ["D4NM11%16s" % ""]),
        ("SG,FIgeoid.ggf", ["D8KI%-32s" % "geoid.ggf"]), ("SG,FI", []),
    ]
    add("raw", "dc77", "coordinate-system", records, "Every record of a coordinate system in degrees.")

    gons = (n9(10.5), n9(-20.25), n5(1), n5(2), n5(3), n5(4), n9(0.9996), n9(30.5 / 0.9), n9(-40.25 / 0.9))
    add("raw", "dc1070", "coordinate-system-gons", start("GONS", au=1) + [
        ("PJ,TP2062,%s" % pj, [projection("3", gons)]),
        ("HA,N 1,E 2,TN3,TH99,TE4,RT50.5,SC1",
         ["50KI%16s%16s%16s%16s%16s%16s" % (n5(1), n5(2), n5(3), n5(4), number(50.5, 10), n9(1))]),
    ], "Parallels are DDD.MMSS in a log of gons too; rotations are gons.")


def zone(indices, letter, ellipsoid, origin, datum, shifts=(0, 0, 0), foot=1, parallels=(NULL, NULL),
         angle=1):
    """What an LM becomes: a projected system without a site, adjustments or a geoid. Lengths in
    metres, angles in degrees; `origin`: latitude, longitude, false northing and easting, scale."""
    latitude, longitude, north, east, scale = origin
    extended = letter == "?"
    projection = ["64KI", "D0KI"][extended] + letter + "".join("%16s" % value for value in (
        n9(latitude), n9(longitude), " ", n5(north / foot), n5(east / foot), " ", n9(scale)) + tuple(
            n9(p if p == NULL else p / angle) for p in parallels))
    return ["65KI%16s%16s" % (n5(ellipsoid[0] / foot), number(ellipsoid[1], 10)),
            "D5KI%16s%16s%16s%16s%16s%16s" % (" ", " ", n5(0), n9(1), n5(0), n5(0)),
            projection + ("1111" + 64 * " " if extended else ""),
            "74KI%32s%30s" % (datum, "") if shifts is None else
            "49KI3" + "%16s" * 9 % ((n5(6378137 / foot), number(298.2572229328697, 10)) +
                                   3 * (n9(0),) + tuple(n5(v / foot) for v in shifts) + (n9(0),)),
            "50KI" + 96 * " ", "81KI1" + 112 * " ",
            "C8KI3%-32s%-32s%-32s" % ("ZEL Zone Group", "Zel Zone:ME%d CS%d DA%d ZO%d HE%d" % indices,
                                      datum)]


def lm(indices, lines, file=""):
    return ("LM,ME%d,CS%d,DA%d,ZO%d,HE%d,FI%s" % (indices + (file,)), lines)


GRS80 = (6378137, 298.2572215381486)
CLARKE = (6378206.4, 294.9786982138982)


def add_zones():
    """Zones by their numbers, and what stands in for those that don't exist."""
    utm = lambda longitude, north=0: (0, longitude, north, 500000, 0.9996)
    south, alaska, molodensky = (0, 3, 1, 31, 1), (0, 3, 0, 5, 0), (1, 1, 2, 16, 0)
    oblique, conus, michigan = (0, 2, 0, 2, 0), (0, 3, 0, 30, 0), (0, 1, 0, 60, 0)
    records = start("ZONES")
    records[1] = (records[1][0], records[1][1][:-3])  # no default system
    records += [
        lm(south, zone(south, "3", GRS80, utm(3, 10000000), "ZEL NAD83 UTM Datum"), "dir\\zone.dat"),
        lm(alaska, zone(alaska, "3", CLARKE, utm(-153), "NADCON (Alaska)", None)),
        lm(conus, zone(conus, "3", CLARKE, utm(-3), "NADCON (Conus)", None)),
        # Zone 16 plus 1; shifts to the local datum.
        lm(molodensky, zone(molodensky, "3", (6378206.4, 294.9786982), utm(-81),
                            "ZelMolodenskyDatum_2", (8, -160, -176))),
        # 133 40 W, 57 N, the axis at the arctangent of -3/4.
        lm(oblique, zone(oblique, "?", GRS80, (57, -(133 + 2 / 3), -5e6, 5e6, 0.9999),
                         "ZEL SP83 Datum", parallels=(-math.degrees(math.atan(0.75)), 0))),
        # Michigan East: 83 40 W, 500,000 US feet, 41 30 N, 1:17,500, on the raised ellipsoid.
        lm(michigan, zone(michigan, "3", (6378450.047484481, CLARKE[1]),
                          (41.5, -(83 + 2 / 3), 0, 500000 * 1200 / 3937, 1 - 1 / 17500),
                          "NADCON (Michigan)", None)),
    ]
    # No zone, no such datum, system or method, a zone without a grid or a row, files of zones.
    for indices in ((0, 3, 1, 9999, 0), (0, 3, 2, 31, 0), (0, 5, 0, 1, 0), (2, 1, 0, 1, 0),
                    (0, 1, 0, 129, 0), (0, 1, 0, 130, 0), (0, 2, 0, -1, 0), (0, 4, 0, 1, 0),
                    (1, 2, 0, 1, 0), (1, 1, 248, 1, 0)):
        records.append(lm(indices, base.no_system(1.0), "zone.dat"))
    records.append(("LH", base.no_system(1.0)))
    add("raw", "dc1070", "zones", records, "Zones by number; those that don't exist give a log's "
        "default system.")

    # Alaska 10: parallels 51 50 and 53 50, northern first in the record; feet and gons.
    lambert = (0, 2, 2, 11, 0)
    records = start("ZONES", au=1, un=0)
    records[1] = (records[1][0], records[1][1][:-3])
    records += [
        lm(lambert, zone(lambert, "6", (6378137, 1.110712247415441), (51, -176, 0, 1e6, 1),
                         "ZEL SP83 Datum", (0, 0, -4.5), 0.3048,
                         (53 + 5 / 6, 51 + 5 / 6), 0.9)),
    ]
    # The scale at the origin of this projection follows from its parallels: the zone has none.
    records[2][1][2] = records[2][1][2][:101] + 16 * " " + records[2][1][2][117:]
    add("raw", "dc1070", "zones-feet", records, "A zone in feet and gons.")


def add_refusals():
    for name, record in (("gps-bad-receiver", "RX,DCSTATIC"), ("gps-bad-control", "CT,PN1,DM1,RH1"),
                         ("gps-bad-rover-point", "RP,PN1,N 1,E 1,EL1"), ("bad-projection", "PJ,TP1"),
                         ("bad-zone", "LM,ME0,CS3,DA1,ZO9999,HE0")):
        add("raw", "dc1070", name, start("BAD") + [(record, [])], "A required field is missing.",
            "Bad raw data record found at line 3. The conversion is aborted.\n", converts=False)
    add("raw", "dc1070", "gps-vector-without-point",
        start("BAD") + BASE + [("BL,DCROVER,PN1,DX1,DY2,DZ3,--,GM1,CL1,HP0,VP0", []),
                               ("GP,PN2,PTDATA", [])],
        "The next GP is of another point.",
        "Bad raw data record found at line 7. The conversion is aborted.\n", converts=False)


add_rover()
add_kinds()
add_base_roles()
add_localization()
add_states()
add_signatures()
add_units()
add_system()
add_zones()
add_refusals()

if __name__ == "__main__":
    base.settle_routes()
