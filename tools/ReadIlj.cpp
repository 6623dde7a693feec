#include "tools/ReadIlj.h"

#include <string>
#include <string_view>

#include "ilj/CMoskoJobRecord.h"
#include "io/CivilTime.h"
#include "io/HandlerTable.h"
#include "io/Strings.h"
#include "tools/Dates.h"
#include "tools/RecordCounts.h"

namespace zelconvert::tools {
namespace {

class IljReader {
 public:
  IljReader(CTextFile& ilj, Survey& survey) : m_ilj(ilj), m_survey(survey) {}

  Source Read();

 private:
  using Handler = void (IljReader::*)();
  static consteval auto Handlers();

  void ReadRecord();
  template <class Record, SourceMarks Source::*marks>
  void OnNamed() {
    SourceMark mark;
    mark.line = m_line;
    (m_source.*marks).Add(Record(m_record).template Value<"PTNM">(), mark);
  }
  template <class Record>
  void OnNote() {
    m_survey.notes.push_back(
        {std::wstring(Trim(Record(m_record).template Value<"NOTE">())), m_line});
  }

  CTextFile& m_ilj;
  Survey& m_survey;
  Source m_source;
  CMoskoJobRecord m_record;  // the line at hand
  std::wstring m_tag;
  std::int64_t m_line = 0;
};

consteval auto IljReader::Handlers() {
  using Slope = CMoskoJobRecordOffsetGroundObservation;
  using Plan = CMoskoJobRecordOffsetGroundVector;
  using Laser = CMoskoJobRecordOffsetLaserObservation;
  return MakeHandlerTable<kIljRecordTypes, IljRecordType, Handler>({
      {CMoskoJobRecordPoint::kType, &IljReader::OnNamed<CMoskoJobRecordPoint, &Source::points>},
      {Slope::kType, &IljReader::OnNamed<Slope, &Source::shots>},
      {Plan::kType, &IljReader::OnNamed<Plan, &Source::shots>},
      {Laser::kType, &IljReader::OnNamed<Laser, &Source::shots>},
      {CMoskoJobRecordUserNote::kType, &IljReader::OnNote<CMoskoJobRecordUserNote>},
      {CMoskoJobRecordSystemNote::kType, &IljReader::OnNote<CMoskoJobRecordSystemNote>},
  });
}

Source IljReader::Read() {
  RecordCounter counter(m_survey);
  m_ilj.Rewind();
  for (std::string_view line; m_ilj.ReadString(line);) {
    ++m_line;
    const std::size_t tab = line.find('\t');
    if (tab == line.npos) continue;
    m_tag.clear();
    AppendUnits(m_tag, line.substr(0, tab));
    counter.Count(m_tag);
    const std::int32_t type = kIljRecordMap.GetType(line.substr(0, tab));
    if (type == 0) continue;
    m_record.Restart(static_cast<IljRecordType>(type));
    if (m_record.ParseText(line.substr(tab + 1))) ReadRecord();
  }
  return std::move(m_source);
}

void IljReader::ReadRecord() {
  if (const std::int64_t moment = m_record.GetDateTime(); moment != 0) {
    const CivilTime time = ToCivilTime(moment);
    TakeDate(m_survey, DateOf(time.year, static_cast<int>(time.month), static_cast<int>(time.day)));
  }
  static constexpr auto kHandlers = Handlers();
  if (const Handler* handle = kHandlers.Find(m_record.GetRecordType())) (this->**handle)();
}

}  // namespace

Source ReadIljMarks(CTextFile& ilj, Survey& survey) {
  return IljReader(ilj, survey).Read();
}

}  // namespace zelconvert::tools
