// The head of the DC file, which the log's first MO opens: job, settings and, in a log without a
// localization, the system that stands for none. And comments.
#pragma once

#include <string>

#include "raw/todc/RawPass.h"

namespace zelconvert {

class Job {
 public:
  explicit Job(RawPass& pass) : m_pass(pass) {}

  void OnJob(const JB_RECORD& job);          // JB
  Outcome OnMode(const MO_RECORD& mode);     // MO
  void OnCogoFlags(const CG_RECORD& flags);  // CG
  void OnComment();                          // --

 private:
  [[nodiscard]] bool WriteHeader(const MO_RECORD& mode);
  void WriteJob(const MO_RECORD& mode);
  void WriteCogo(std::int32_t azimuthOrigin, std::int32_t gridOrientation);

  RawPass& m_pass;
  std::wstring m_name;
  std::wstring m_date;
  std::wstring m_time;
  bool m_isConflictReported = false;
};

}  // namespace zelconvert
