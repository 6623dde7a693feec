// What a reduction has to know of a raw log before it comes to it. One pass over the file gathers
// the kind of each line and the little that look-aheads ask for, so that none of them reads ahead
// and the whole work stays linear in the file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "io/NameSet.h"
#include "raw/CRawFile.h"
#include "raw/RawRecords.h"
#include "raw/RawUnits.h"

namespace zelconvert {

/// A set of record kinds.
class RawKinds {
 public:
  constexpr RawKinds(std::initializer_list<RawRecordType> kinds) {
    for (const RawRecordType kind : kinds) m_has[static_cast<std::size_t>(kind)] = true;
  }
  constexpr bool Contains(RawRecordType kind) const {
    return m_has[static_cast<std::size_t>(kind)];
  }

 private:
  bool m_has[kRawRecordTypes] = {};
};

/// What ends a setup's look-aheads.
inline constexpr RawKinds kShotKinds = {RawRecordType::SS, RawRecordType::TR, RawRecordType::SK,
                                        RawRecordType::OB};

/// What tells of the point that a vector led to.
inline constexpr RawKinds kGpsPointMarks = {RawRecordType::GP, RawRecordType::GS,
                                            RawRecordType::GK};

/// What an LS ahead says.
struct HeightsAhead {
  LS_RECORD heights;
  std::uint32_t line;
  std::uint32_t modeLine;          ///< the line of the latest good MO before it, or 0
  std::optional<LinearUnit> unit;  ///< that of this MO, if it tells one
  bool hasRodHeight;               ///< the LS has an HR
};

/// Lines are counted from 1. The look-aheads answer for the record on `line`, by the records after
/// it; asked in the order of the file, all of them together take linear time. What is kept of a
/// line is small, since a log may hold nothing but what is kept: lines are counted in 32 bits, and
/// Build throws std::length_error for more of them.
class RawIndex {
 public:
  /// Reads the whole file and goes back to its start.
  void Build(CRawFile& raw);

  /// Of the whole file, once it is built.
  std::int64_t LineCount() const { return static_cast<std::int64_t>(m_kinds.size()); }
  /// The first MO; defaults if there is none or it is bad.
  const MO_RECORD& FirstMode() const { return m_firstMode; }
  /// The log has an LM or LH somewhere.
  bool HasLocalization() const { return m_hasLocalization; }
  /// The names of which an OC, an RP or a caller asks whether they have been written already.
  const NameSet& AskedNames() const { return m_askedNames; }
  /// Adds to these names.
  void AskFor(std::wstring_view name) { m_askedNames.Insert(name); }
  /// The names of all good DP.
  const NameSet& DeletedNames() const { return m_deletedNames; }
  /// A DP after `line` deletes the point. Of several DP of a name the last counts.
  bool IsDeleted(std::wstring_view name, std::int64_t line) const;

  /// An OC stands before the next shot.
  bool OccupyIsSuperseded(std::int64_t line);
  /// An OC or BK stands before the next shot.
  bool BacksightIsSuperseded(std::int64_t line);
  /// A shot comes before the next OC.
  bool TraverseContinues(std::int64_t line);
  /// The next record is DE or OE.
  bool NextIsStakeDetail(std::int64_t line) const;
  /// The LS before the next shot or OC; null if there is none or it lacks its HI. `type` is
  /// the kind of the record on `line`, OC, BK or TR: a TR looks past an OC that names the same
  /// point as `name`.
  const HeightsAhead* FindHeights(std::int64_t line, RawRecordType type, std::wstring_view name);
  /// What the next GP says of the vector to `name`. False if that GP is bad or of another name; a
  /// GS or GK before it, or none at all, leaves `isControl` false.
  bool FindGpsPointKind(std::int64_t line, std::wstring_view name, bool& isControl);

 private:
  /// Finds the next line of some kinds, in amortized constant time while lines only go up.
  class Search {
   public:
    explicit constexpr Search(const RawKinds& kinds) : m_kinds(kinds) {}
    /// The first such line after `line`, or one past the last line of the file.
    std::int64_t Next(const std::vector<RawRecordType>& lines, std::int64_t line);

   private:
    RawKinds m_kinds;
    std::int64_t m_asked = 0;
    std::int64_t m_found = 0;
  };
  struct Occupied {
    std::uint32_t line;
    std::uint32_t name;  // its number in m_askedNames
  };
  struct GpsPoint {
    std::uint32_t line;
    std::uint32_t name;  // its number in m_gpsNames
    GpsPointKind kind;
  };
  void Add(RawRecordType kind, std::wstring_view record);
  void AddDeletion(std::wstring_view name, std::uint32_t line);
  void AddMode(std::uint32_t line, std::wstring_view record);
  void AddHeights(RawRecordType kind, std::uint32_t line, std::wstring_view record);
  void AddOccupied(std::uint32_t line, std::wstring_view record);
  void AddGpsPoint(std::uint32_t line, std::wstring_view record);
  RawRecordType KindAt(std::int64_t line) const {
    return m_kinds[static_cast<std::size_t>(line - 1)];
  }

  std::vector<RawRecordType> m_kinds;
  std::deque<HeightsAhead> m_heights;
  std::deque<Occupied> m_occupied;
  std::deque<GpsPoint> m_gpsPoints;  // the good ones
  NameSet m_gpsNames;
  NameSet m_deletedNames;
  std::deque<std::uint32_t> m_deletedAt;  // the line of the last DP, by the name's number
  NameSet m_askedNames;
  MO_RECORD m_firstMode;
  std::optional<LinearUnit> m_unit;  // of the latest good MO
  std::uint32_t m_modeLine = 0;      // its line
  bool m_hasMode = false;
  bool m_isSetupOpen = false;   // an OC, BK or TR, and neither LS nor shot since
  bool m_isVectorOpen = false;  // a BL, and no GP, GS or GK since
  bool m_hasLocalization = false;

  Search m_nextShot{kShotKinds};
  Search m_nextOccupy{{RawRecordType::OC}};
  Search m_nextSetup{{RawRecordType::OC, RawRecordType::BK}};
  Search m_nextHeights{{RawRecordType::OC, RawRecordType::LS, RawRecordType::SS, RawRecordType::TR,
                        RawRecordType::SK, RawRecordType::OB}};
  Search m_nextGpsPoint{kGpsPointMarks};
};

}  // namespace zelconvert
