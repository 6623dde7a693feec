// Two records that are the same one of two files, property by property.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/DiffSurveys.h"
#include "tools/FormatLimits.h"
#include "tools/Survey.h"

namespace zelconvert::tools {

/// Metres, at which angles count by what they do if what they lead to is at no known distance.
inline constexpr double kUsualDistance = 100;

// As differences name them.
std::wstring NameFor(const SurveyPoint& point);
std::wstring NameFor(const Setup& setup);
std::wstring NameFor(const Shot& shot);
std::wstring NameFor(const GpsVector& vector);
std::wstring NameFor(const Road& road);
std::wstring NameFor(const Note& note);

class RecordComparison {
 public:
  /// Differences are appended to `found`, which stays the caller's, as do the limits.
  RecordComparison(const FormatLimits& firstLimits, const FormatLimits& secondLimits,
                   const DiffOptions& options, std::vector<SurveyDifference>& found)
      : m_firstLimits(firstLimits),
        m_secondLimits(secondLimits),
        m_options(options),
        m_found(found) {}

  void Compare(const SurveyPoint& a, const SurveyPoint& b);
  void Compare(const Setup& a, const Setup& b);
  void Compare(const Shot& a, const Shot& b);
  void Compare(const GpsVector& a, const GpsVector& b);
  void Compare(const Road& a, const Road& b);
  void Compare(const Note&, const Note&) {}
  /// The coordinate systems and, of files without one, the scales.
  void CompareSystems(const Survey& a, const Survey& b);

 private:
  template <class Record>
  void Begin(Subject subject, const Record& a, const Record& b);
  template <class Record>
  void CompareState(const Record& a, const Record& b);
  void CompareGrid(const GridPosition& a, const GridPosition& b, double plan, double height);
  void CompareGeodetic(const GeodeticPosition& a, const GeodeticPosition& b);
  void CompareDirections(const Shot& a, const Shot& b, double distance);
  void CompareAlignments(const Road& a, const Road& b);
  void CompareProfiles(const Road& a, const Road& b);
  void CompareTemplates(const Road& a, const Road& b);

  void CompareNumber(std::wstring_view property, Quantity quantity, double a, double b,
                     double tolerance);
  void CompareText(std::wstring_view property, const std::wstring& a, const std::wstring& b);
  double AngleTolerance(double distance) const;

  SurveyDifference& Tell(Change change);
  void TellMoved(const GridPosition& shift) { Tell(Change::Moved).position = shift; }
  void TellNumbers(std::wstring_view property, Quantity quantity, double a, double b);
  void TellTexts(std::wstring_view property, const std::wstring& a, const std::wstring& b);

  const FormatLimits& m_firstLimits;
  const FormatLimits& m_secondLimits;
  const DiffOptions& m_options;
  std::vector<SurveyDifference>& m_found;
  SurveyDifference m_begin;  // what all differences of the pair at hand have in common
};

}  // namespace zelconvert::tools
