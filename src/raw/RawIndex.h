// What a reduction has to know of a raw log before it comes to it. One pass over the file gathers
// the little that look-aheads ask for, so that none of them reads ahead and the whole work stays
// linear in the file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string_view>
#include <tuple>

#include "io/NameSet.h"
#include "raw/CRawFile.h"
#include "raw/RawRecords.h"
#include "raw/RawUnits.h"

namespace zelconvert {

/// Entries by their lines, which only go up.
template <class Entry>
class LineList {
 public:
  void Add(const Entry& entry) { m_entries.push_back(entry); }
  /// The first one after `line`, or null; in amortized constant time while lines go one way.
  const Entry* After(std::int64_t line) {
    while (m_next > 0 && m_entries[m_next - 1].line > line) --m_next;
    while (m_next < m_entries.size() && m_entries[m_next].line <= line) ++m_next;
    return m_next < m_entries.size() ? &m_entries[m_next] : nullptr;
  }

 private:
  std::deque<Entry> m_entries;
  std::size_t m_next = 0;
};

/// What an LS ahead says.
struct HeightsAhead {
  LS_RECORD heights;
  std::uint32_t line;
  std::uint32_t setupLine;         ///< the first setup that it is for
  std::uint32_t modeLine;          ///< the line of the latest good MO before it, or 0
  std::optional<LinearUnit> unit;  ///< that of this MO, if it tells one
  bool hasRodHeight;               ///< the LS has an HR
};

/// Lines are counted from 1. The look-aheads answer for the record on `line`, by the records after
/// it; asked in the order of the file, all of them together take linear time. A shot is a SS, TR,
/// SK or OB. Nothing is kept of shots, and little of a line, since a log may hold nothing but what
/// is kept: lines are counted in 32 bits, and Build throws std::length_error for more of them.
class RawIndex {
 public:
  /// Reads the whole file and goes back to its start.
  void Build(CRawFile& raw);

  /// The first MO; defaults if there is none or it is bad.
  const MO_RECORD& FirstMode() const { return m_firstMode; }
  /// The log has an LM or LH somewhere.
  [[nodiscard]] bool HasLocalization() const { return m_hasLocalization; }
  /// The names of which an OC, an RP or a caller asks whether they have been written already.
  const NameSet& AskedNames() const { return m_askedNames; }
  /// Adds to these names.
  void AskFor(std::wstring_view name) { std::ignore = m_askedNames.Insert(name); }
  /// The names of all good DP.
  const NameSet& DeletedNames() const { return m_deletedNames; }
  /// A DP after `line` deletes the point. Of several DP of a name the last counts.
  [[nodiscard]] bool IsDeleted(const auto& name, std::int64_t line) const {
    const auto found = m_deletedNames.Find(name);
    return found && line < m_deletedAt[*found];
  }

  /// An OC stands before the next shot.
  [[nodiscard]] bool OccupyIsSuperseded(std::int64_t line);
  /// An OC or BK stands before the next shot.
  [[nodiscard]] bool BacksightIsSuperseded(std::int64_t line);
  /// A shot comes before the next OC.
  [[nodiscard]] bool TraverseContinues(std::int64_t line);
  /// The next record is DE or OE.
  [[nodiscard]] bool NextIsStakeDetail(std::int64_t line);
  /// The LS before the next shot or OC; null if there is none or it lacks its HI. `type` is
  /// the kind of the record on `line`, OC, BK or TR: a TR looks past an OC that names the same
  /// point as `name`.
  const HeightsAhead* FindHeights(std::int64_t line, RawRecordType type, std::string_view name);
  /// What the next GP says of the vector to `name`. False if that GP is bad or of another name; a
  /// GS or GK before it, or none at all, leaves `isControl` false.
  [[nodiscard]] bool FindGpsPointKind(std::int64_t line, std::string_view name, bool& isControl);

 private:
  struct Occupied {
    std::uint32_t line;
    std::uint32_t name;      // its number in m_askedNames
    std::uint32_t shotLine;  // the latest shot before it, or 0
  };
  struct GpsPoint {
    std::uint32_t line;
    std::uint32_t vectorLine;  // the first vector that it is for
    std::uint32_t name;        // 1 + its number in m_gpsNames; 0 of a bad GP
    GpsPointKind kind;
  };
  struct Line {
    std::uint32_t line;
  };
  void Add(std::string_view record);
  void AddDeletion(std::string_view record);
  void AddMode(std::string_view record);
  void AddHeights(std::string_view record);
  void AddOccupied(std::string_view record);
  void AddGpsPoint(std::string_view record);
  void SupersedeBacksight();

  LineList<HeightsAhead> m_heights;
  LineList<Occupied> m_occupied;
  LineList<Line> m_supersededBacksights;
  LineList<Line> m_stakeDetails;
  LineList<GpsPoint> m_gpsPoints;
  NameSet m_gpsNames;
  NameSet m_deletedNames;
  std::deque<std::uint32_t> m_deletedAt;  // the line of the last DP, by the name's number
  NameSet m_askedNames;
  MO_RECORD m_firstMode;
  std::optional<LinearUnit> m_unit;  // of the latest good MO
  std::uint32_t m_modeLine = 0;      // its line
  bool m_hasMode = false;
  bool m_hasLocalization = false;

  // The lines of the records gone through; 0 for none.
  std::uint32_t m_line = 0;           // the latest
  std::uint32_t m_shotLine = 0;       // the latest shot
  std::uint32_t m_setupLine = 0;      // the first OC, BK or TR since the latest LS or shot
  std::uint32_t m_backsightLine = 0;  // the latest BK, until an OC or BK comes
  std::uint32_t m_vectorLine = 0;     // the first BL since the latest GP, GS or GK
};

}  // namespace zelconvert
