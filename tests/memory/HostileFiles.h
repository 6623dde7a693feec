// Inputs that nobody writes but that a conversion may be given, of any size: each is made of what
// takes the most room or time somewhere. The test of memory and the benchmark of time share them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "zelconvert/zelconvert.h"

namespace zelconvert {

struct HostileFile {
  const char* name;
  FileType type;
  std::string_view head;    ///< once, at the start
  std::string_view record;  ///< again and again; each "#" is a digit of the record's number
  unsigned most = 4;        ///< bytes of memory, at most, for each byte more of it
};

inline constexpr std::string_view kDcHead =
    "00NMFX V10-70           09-16-2026 10:05111111\r\n10NMHOSTILE         121111\r\n";
inline constexpr std::string_view kDcRoadHead =
    "00NMFX V10-70           09-16-2026 10:05111111\r\n10NMHOSTILE         121111\r\n"
    "28KILONG ROAD       \r\n"
    "84KI         0.00000         0.00000         0.00000         0.00000         0.00000\r\n"
    "31KI         0.00000        20.00000\r\n34KI         0.00000         0.00000\r\n"
    "37KI  99999999.00000         0.00000\r\n39KIT               \r\n"
    "46KI3         3.50000        -2.00000        -0.07000         0.00000         0.0000011EP\r\n"
    "97KI1        50.000001        33.33330         0.00000TOE             \r\n";
inline constexpr std::string_view kRawHead =
    "JB,NMHOSTILE,DT09-14-2026,TM08:12:30\r\nMO,AD0,UN1,SF1.0,EC0,EO0.0,AU0\r\n"
    "SP,PN1,N 5000.0,E 5000.0,EL100.0,--\r\nOC,OP1,N 5000.0,E 5000.0,EL100.0,--\r\n"
    "BK,OP1,BP2,BS45.1530,BC0.0\r\nLS,HI1.5,HR1.6\r\n";
inline constexpr std::string_view kRawNameHead =
    "JB,NMHOSTILE,DT09-14-2026,TM08:12:30\r\nMO,AD0,UN1,SF1.0,EC0,EO0.0,AU0\r\n"
    "SP,N 5,E 5,EL5,--c,PN";
inline constexpr std::string_view kIljHead =
    "\xEF\xBB\xBFJOBMO\tDATE:20260917\tTIME:090001\tUNDI:0\tUNAN:0\tDESC:1.0.0\t\r\n";
inline constexpr std::string_view kIljNoteHead =
    "\xEF\xBB\xBFJOBMO\tDATE:20260917\tTIME:090001\tUNDI:0\tUNAN:0\tDESC:1.0.0\t\r\n"
    "UNOTE\tDATE:20260917\tTIME:090003\tNOTE:";

inline constexpr HostileFile kHostileFiles[] = {
    // Lines of nothing, of one character, and one line that is all of the file.
    {"dc_empty_lines", FT_DC, kDcHead, "\n"},
    {"dc_line_of_one", FT_DC, kDcHead, "x\n"},
    {"dc_one_line", FT_DC, kDcHead, "x"},
    {"dc_one_note", FT_DC, kDcHead, "13NMx"},
    {"raw_empty_lines", FT_RAW, kRawHead, "\n"},
    {"raw_line_of_one", FT_RAW, kRawHead, "x\n"},
    {"raw_one_line", FT_RAW, kRawHead, "x"},
    {"raw_one_note", FT_RAW, kRawHead, "--,EL"},
    {"raw_one_line_of_fields", FT_RAW, kRawHead, ",PN"},
    {"raw_one_name", FT_RAW, kRawNameHead, "x"},
    {"raw_cut_names", FT_RAW, kRawHead, "SS,OP1,FP#######XXXXXXXXXX,AR1,ZE9,SD1,--\n", 2},
    {"ilj_empty_lines", FT_ILJ, kIljHead, "\n"},
    {"ilj_line_of_one", FT_ILJ, kIljHead, "x\n"},
    {"ilj_one_line", FT_ILJ, kIljHead, "x"},
    {"ilj_one_line_of_fields", FT_ILJ, kIljHead, "POINT\tPTNM:A\t"},
    {"ilj_one_note", FT_ILJ, kIljNoteHead, "\xC3\xB6"},
    // Names: all equal, all different, and as short as can be.
    {"dc_equal_names", FT_DC, kDcHead,
     "69KI               A   5326041.20000    540017.60000       512.70000                11\n"},
    {"dc_names", FT_DC, kDcHead,
     "69KI         #######   5326041.20000    540017.60000       512.70000                11\n"},
    {"dc_bare_names", FT_DC, kDcHead, "69KI        ########\n"},
    {"dc_notes", FT_DC, kDcHead, "13NM\n"},
    {"raw_equal_names", FT_RAW, kRawHead, "SS,OP1,FPA,AR1,ZE9,SD1,--\n"},
    {"raw_shots", FT_RAW, kRawHead, "SS,OP1,FP#######,AR90.0000,ZE90.0000,SD10.0,--EP\n"},
    {"raw_points", FT_RAW, kRawHead, "SP,PN#######,N ,E ,EL,--\n"},
    {"raw_deletions", FT_RAW, kRawHead, "SP,PN#######,N ,E ,EL,--\nDP,PN#######\n"},
    {"raw_deletions_alone", FT_RAW, kRawHead, "DP,PN#######\n"},
    {"raw_equal_deletions", FT_RAW, kRawHead, "SP,PN1,N ,E ,EL,--\nDP,PN1\n"},
    {"raw_asked_names", FT_RAW, kRawHead, "RP,PN#######\n"},
    {"raw_occupied", FT_RAW, kRawHead, "OC,OP#######,N ,E ,EL,--\n"},
    {"raw_bare_occupied", FT_RAW, "JB,NMHOSTILE,DT09-14-2026,TM08:12:30\r\n", "OC,OP#######\n"},
    // What an index or a look-ahead keeps.
    {"raw_modes", FT_RAW, kRawHead, "MO,AD0,UN2,SF1,EC0,EO0\n"},
    {"raw_heights", FT_RAW, kRawHead, "TR\nLS,HI1\n"},
    {"raw_whole_heights", FT_RAW, kRawHead, "OC,OP1,N ,E ,EL,--\nLS,HI1,HR1\n"},
    {"raw_backsights", FT_RAW, kRawHead, "BK,OP1,BP1,BS1,BC0\n"},
    {"raw_traverses", FT_RAW, kRawHead, "TR,OP1,FP#######,AR1,ZE9,SD1,--\n"},
    {"raw_vectors", FT_RAW, kRawHead,
     "BL,DCROVER,PN#######,DX1,DY1,DZ1,--,GM1,CL1,HP0,VP0\nGP,PN1,PTDATA\n"},
    {"raw_bare_vectors", FT_RAW, kRawHead, "BL\nGP\n"},
    {"raw_rounds", FT_RAW, kRawHead, "RB,OP1,BP2,AR1,ZE9,SD1,HR1,--\n"},
    {"raw_round_directions", FT_RAW, kRawHead, "RD,BD#:1\n"},
    {"raw_open_rounds", FT_RAW, kRawHead, "RF,OP1,FP2,AR1,ZE9,SD1,HR1,--\n"},
    {"raw_controls", FT_RAW, kRawHead, "CT,PN#######,DM1,RH0,RV0\n"},
    {"raw_comments", FT_RAW, kRawHead, "--\n"},
    {"raw_cameras", FT_RAW, kRawHead, "SC,FI,NP1,HS1,VS1\n"},
    // Roads.
    {"dc_good_roads", FT_DC, kDcHead,
     "28KI########        \n84KI         0.00000         0.00000         0.00000         0.00000   "
     "      0.00000\n"
     "31KI         0.00000        20.00000\n34KI         0.00000         0.00000\n"
     "37KI        20.00000         0.00000\n39KIT#######        \n"
     "46KI3         3.50000        -2.00000        -0.07000         0.00000         0.0000011EP    "
     "          \n"
     "97KI1        50.000001        33.33330         0.00000TOE             \n"
     "B9KI         0.000003T#######        3T#######        \n"},
    {"dc_roads", FT_DC, kDcHead, "28KI########\n"},
    {"dc_road_elements", FT_DC, kDcRoadHead, "31KI         0.00000         0.10000\n"},
    {"dc_road_profile", FT_DC, kDcRoadHead, "34KI         ######.       514.00000\n"},
    {"dc_road_positions", FT_DC, kDcRoadHead, "B9KI########.000003T               3T\n"},
    {"dc_short_positions", FT_DC, kDcRoadHead, "B9KI\n"},
    {"dc_road_widenings", FT_DC, kDcRoadHead,
     "44KI########.000001        -2.000001        -2.00000         0.00000         0.000002\n"},
    {"dc_templates", FT_DC, kDcRoadHead,
     "39KIT#######\n46KI3         3.50000        -2.00000\n97KI1        50.000001        "
     "33.33330\n"},
    {"dc_template_segments", FT_DC, kDcRoadHead, "46KI3         3.50000        -2.00000\n"},
    {"ilj_points", FT_ILJ, kIljHead,
     "POINT\tDATE:20260917\tTIME:090021\tDERV:KI\tPTNM:########\tDESC:E\tNRTH:5\tEAST:5\tELEV:5\t"
     "CDTY:9\tCDOR:1\tCDCL:1\t\n"},
};

/// What such a file is converted to; and a job that one becomes.
inline std::vector<FileType> OutputsOf(FileType from) {
  if (from == FT_DC) return {FT_JOB, FT_ILJ};
  if (from == FT_RAW) return {FT_DC, FT_SDR33, FT_JXL};
  if (from == FT_JOB) return {FT_DC, FT_CR5, FT_SEQ_CR5};
  return {FT_DC};
}

/// The bytes of such a file, about `size` of them.
inline std::string MakeHostile(const HostileFile& file, std::size_t size) {
  std::string bytes(file.head);
  bytes.reserve(size + file.head.size() + file.record.size());
  for (std::size_t number = 1; bytes.size() < size; ++number) {
    std::size_t rest = number;
    bytes += file.record;
    const std::size_t start = bytes.size() - file.record.size();
    for (std::size_t i = bytes.size(); i-- > start;) {
      if (bytes[i] != '#') continue;
      bytes[i] = static_cast<char>('0' + rest % 10);
      rest = i > start && bytes[i - 1] == '#' ? rest / 10 : number;
    }
  }
  return bytes;
}

}  // namespace zelconvert
