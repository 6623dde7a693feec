#include "roads/CheckDcRoads.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>

#include "io/HandlerTable.h"
#include "io/Strings.h"
#include "roads/RoadRecords.h"
#include "roads/RoadTexts.h"

namespace zelconvert {

namespace {

class RoadCheck {
 public:
  RoadCheck(RoadNames& badRoads, MessageList& messages)
      : m_badRoads(badRoads), m_messages(messages) {}

  /// Whether a line of this type says anything where the file stands.
  [[nodiscard]] bool Wants(std::int32_t type) const {
    return type == tDC_ROAD_HEADERRecord::kType || type == tDC_HEADERRecord::kType ||
           (m_isRoadOpen && !m_road.isBad && FindHandler(type) != nullptr);
  }

  /// Of a type that it wants.
  void Line(std::int32_t type, const DcLine& line) {
    if (type == tDC_ROAD_HEADERRecord::kType) return BeginRoad(line);
    if (type == tDC_HEADERRecord::kType && line.Size() < tDC_HEADERRecord::kShortestLine) {
      m_found.isAny = true;
    }
    const Handler* handler = FindHandler(type);
    if (handler != nullptr) (this->**handler)(line);
  }

  /// The last road ends with the file.
  void EndRoad() {
    if (!m_isRoadOpen) return;
    m_isRoadOpen = false;
    if (!m_road.isBad) CheckEndOfRoad();
    if (!m_road.isBad) return;
    m_messages.Warn(FormatRoadFailure(m_road.name));
    std::ignore = m_badRoads.Insert(m_road.name);
  }

  const FoundRoads& GetFound() const { return m_found; }

 private:
  using Handler = void (RoadCheck::*)(const DcLine& line);

  static const Handler* FindHandler(std::int32_t type) {
    using Self = RoadCheck;
    static constexpr auto kHandlers = MakeHandlerTable<kDcTypeCount, std::int32_t, Handler>({
        {tDC_ROAD_HALRecord::kType, &Self::On<tDC_ROAD_HALRecord>},
        {tDC_ROAD_STRAIGHT_POINTRecord::kType, &Self::OnStraightPoint},
        {tDC_ROAD_VALRecord::kType, &Self::On<tDC_ROAD_VALRecord>},
        {tDC_ROAD_VCIRCULARRecord::kType, &Self::OnVerticalCircular},
        {tDC_ROAD_VASYMMETRICRecord::kType, &Self::OnVerticalAsymmetric},
        {tDC_ROAD_TEMPLATERecord::kType, &Self::OnTemplate},
        {tDC_ROAD_SEGMENTRecord::kType, &Self::On<tDC_ROAD_SEGMENTRecord>},
        {tDC_ROAD_HINGERecord::kType, &Self::On<tDC_ROAD_HINGERecord>},
        {tDC_ROAD_SIDESLOPERecord::kType, &Self::On<tDC_ROAD_SIDESLOPERecord>},
        {tDC_ROAD_APPLYTEMPLATERecord::kType, &Self::On<tDC_ROAD_APPLYTEMPLATERecord>},
        {tDC_ROAD_APPLYSUPERRecord::kType, &Self::On<tDC_ROAD_APPLYSUPERRecord>},
    });
    return kHandlers.Find(type);
  }

  template <class Record>
  void On(const DcLine& line) {
    Check(m_records.Read<Record>(line));
  }
  void OnStraightPoint(const DcLine&) { m_found.hasPoint = true; }
  void OnVerticalCircular(const DcLine&) { Refuse(road_texts::kVerticalCircular); }
  void OnVerticalAsymmetric(const DcLine&) { Refuse(road_texts::kVerticalAsymmetric); }

  void OnTemplate(const DcLine&) {
    if (m_road.hasTemplate) CheckEndOfTemplate();
    m_road.hasTemplate = true;
    m_road.current = {};
  }

  // The rules for a record within a road that is still good.
  void Check(const tDC_ROAD_HALRecord& record) { m_road.startStation = record.startStation; }

  void Check(const tDC_ROAD_VALRecord& record) {
    m_road.hasVertical = true;
    if (record.startStation != m_road.startStation) Refuse(road_texts::kUnlikeStarts);
  }

  /// The grade is looked at although the text speaks of the width: a first segment without a grade
  /// is what RD5 can't hold.
  void Check(const tDC_ROAD_SEGMENTRecord& record) {
    const bool isFirst = m_road.current.segments++ == 0;
    CheckSegment(record, isFirst, record.grade, road_texts::kNoFirstGrade);
  }

  void Check(const tDC_ROAD_HINGERecord& record) {
    const bool isFirst = m_road.current.hinges++ == 0;
    CheckSegment(record, isFirst, record.offset, road_texts::kNoFirstOffset);
  }

  void Check(const tDC_ROAD_SIDESLOPERecord& record) {
    constexpr int kNull = 5;
    m_road.current.hasSideSlope = true;
    if (record.cutDitchWidth != 0.0) return Refuse(road_texts::kCutDitch);
    if (record.cutMethod == kNull || record.fillMethod == kNull) Refuse(road_texts::kNullSlope);
  }

  void Check(const tDC_ROAD_APPLYTEMPLATERecord& record) {
    constexpr auto isInterpolateOrNone = [](int method) { return method == 1 || method == 2; };
    if (isInterpolateOrNone(record.leftMethod) || isInterpolateOrNone(record.rightMethod)) {
      Refuse(road_texts::kInterpolateOrNone);
    }
  }

  void Check(const tDC_ROAD_APPLYSUPERRecord& record) {
    constexpr int kCentreLine = 2;
    if (record.pivot != kCentreLine) Refuse(road_texts::kPivotAtEdge);
  }

  /// isFirst: of its kind in the template. size: what of a first one can't be 0, or `text`.
  template <class Record>
  void CheckSegment(const Record& record, bool isFirst, double size, std::wstring_view text) {
    if (isFirst) {
      if (size == 0.0) Refuse(text);
    } else if (record.applySuper || record.applyWidening) {
      Refuse(road_texts::kAppliedToOthers);
    }
  }

  void BeginRoad(const DcLine& line) {
    EndRoad();
    m_found.isAny = true;
    m_isRoadOpen = true;
    m_road = {};
    m_road.name = m_records.Read<tDC_ROAD_HEADERRecord>(line).name;
  }

  void CheckEndOfRoad() {
    if (!m_road.hasVertical) return Refuse(road_texts::kNoVertical);
    if (!m_road.hasTemplate) return Refuse(road_texts::kNoTemplate);
    CheckEndOfTemplate();
  }

  void CheckEndOfTemplate() {
    const Template& current = m_road.current;
    if (!current.hasSideSlope) return Refuse(road_texts::kNoSideSlope);
    if (current.segments + current.hinges == 0) Refuse(road_texts::kOnlySideSlope);
  }

  void Refuse(std::wstring_view text) {
    m_messages.Warn(std::wstring(text));
    m_road.isBad = true;
  }

  RoadNames& m_badRoads;
  MessageList& m_messages;

  struct Template {
    std::size_t segments = 0;
    std::size_t hinges = 0;
    bool hasSideSlope = false;
  };
  struct Road {
    std::wstring name;
    bool isBad = false;
    double startStation = 0;
    bool hasVertical = false;
    bool hasTemplate = false;
    Template current;  // until the first template: what stands before it
  };
  FoundRoads m_found;
  bool m_isRoadOpen = false;
  Road m_road;
  CRoadRecords m_records;
};

}  // namespace

std::wstring FormatRoadFailure(const std::wstring& roadName) {
  return FormatText(road_texts::kRoadFailure, roadName);
}

FoundRoads CheckDcRoads(CDcFile& file, RoadNames& badRoads, MessageList& messages) {
  RoadCheck check(badRoads, messages);
  DcLine line;
  std::ignore = file.Rewind();
  for (std::string_view bytes; file.ReadLine(bytes);) {
    const std::int32_t type = CDcFile::GetRecordType(bytes);
    if (!check.Wants(type)) continue;
    line.Set(bytes);
    if (!CDcFile::IsDeleted(line)) check.Line(type, line);
  }
  check.EndRoad();
  return check.GetFound();
}

}  // namespace zelconvert
