// Files of points, job, CR5, DC and interlock job, into each other by plain loops.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "GeneratePoints.h"
#include "PlainLoop.h"

namespace zelconvert::bench {

/// Calls `use(payload)` for each point of a job.
template <class Files, class Use>
void ForEachPoint(Files& files, Use use) {
  constexpr std::uint32_t kPoint = 13;
  const auto start = Load<std::uint32_t>(files.Take(34) + 30);
  for (const char* head = files.Take(start - 34); (head = files.Take(8)) != nullptr;) {
    const auto type = Load<std::uint32_t>(head), size = Load<std::uint32_t>(head + 4);
    const char* payload = files.Take(size);
    if (type == kPoint) use(payload);
  }
}

// The characters of UTF-16 text that are in fact 8-bit.
inline std::string_view Text(const char* units, char* text) {
  std::size_t size = 0;
  for (; size < 16 && units[2 * size] != 0; ++size) text[size] = units[2 * size];
  return {text, size};
}

template <class Files>
void PlainJobToDc(Files& files) {
  ForEachPoint(files, [&](const char* payload) {
    char text[16];
    std::string& dc = files.out;
    dc.append("69KI");
    AppendName(dc, Text(payload, text));
    Files::Number(dc, Load<double>(payload + 76), 16, 5);
    Files::Number(dc, Load<double>(payload + 68), 16, 5);
    Files::Number(dc, Load<double>(payload + 84), 16, 5);
    AppendText(dc, Text(payload + 34, text), 16);
    dc.append("11\r\n");
    files.Step();
  });
}

// A CR5 record, in a size that sorts well.
struct PlainRecord {
  int number;
  char rest[41];
};

template <class Files>
void PlainJobToCr5(Files& files) {
  std::vector<PlainRecord> records;
  ForEachPoint(files, [&](const char* payload) {
    PlainRecord& record = records.emplace_back();
    for (const char* name = payload; *name != 0; name += 2) {
      record.number = record.number * 10 + (*name - '0');
    }
    std::memcpy(record.rest, payload + 68, 24);
    Text(payload + 34, record.rest + 24);
  });
  const auto below = [](const auto& a, const auto& b) { return a.number < b.number; };
  if (!std::is_sorted(records.begin(), records.end(), below)) {
    std::sort(records.begin(), records.end(), below);
  }
  char head[38] = "CONVTDLL";
  Store(head + 30, records.back().number);
  Store(head + 34, -1);
  files.out.append(head, sizeof head);
  for (const PlainRecord& record : records) {
    char bytes[45];
    Store(bytes, record.number);
    std::memcpy(bytes + 4, record.rest, sizeof record.rest);
    files.out.append(bytes, sizeof bytes);
    files.Step();
  }
}

inline void StoreText(char* field, std::string_view text) {
  for (const char c : text) {
    *field = c;
    field += 2;
  }
}

inline std::string_view WithoutBlanks(std::string_view column) {
  while (!column.empty() && column.front() == ' ') column.remove_prefix(1);
  while (!column.empty() && column.back() == ' ') column.remove_suffix(1);
  return column;
}

template <class Files>
void PlainDcToJob(Files& files) {
  files.out.assign(4618, '\0');
  for (std::string_view line; files.NextLine(line); files.Step()) {
    if (!line.starts_with("69")) continue;
    char record[108] = {};  // head and payload of a point
    Store(record, std::uint32_t{13});
    Store(record + 4, std::uint32_t{100});
    StoreText(record + 8, WithoutBlanks(line.substr(4, 16)));
    StoreText(record + 42, WithoutBlanks(line.substr(68, 16)));
    Store(record + 76, NumberIn(line.substr(36, 16)));
    Store(record + 84, NumberIn(line.substr(20, 16)));
    Store(record + 92, NumberIn(line.substr(52, 16)));
    Store(record + 100, std::uint32_t{101});
    files.out.append(record, sizeof record);
  }
}

inline std::string_view ValueOf(std::string_view line, std::string_view tag) {
  const std::size_t at = line.find(tag);
  if (at == line.npos) return {};
  line.remove_prefix(at + tag.size());
  return line.substr(0, line.find('\t'));
}

template <class Files>
void PlainIljToDc(Files& files) {
  constexpr double kFeet = 3.280839895013123;
  std::string& dc = files.out;
  dc = "00NMFX V10               13-Mar-26 14:15122112\r\n";
  for (std::string_view line; files.NextLine(line); files.Step()) {
    if (!line.starts_with("POINT")) continue;
    dc += "69";
    dc += ValueOf(line, "\tDERV:");
    AppendName(dc, ValueOf(line, "\tPTNM:"));
    Files::Number(dc, NumberIn(ValueOf(line, "\tNRTH:")) * kFeet, 16, 5);
    Files::Number(dc, NumberIn(ValueOf(line, "\tEAST:")) * kFeet, 16, 5);
    Files::Number(dc, NumberIn(ValueOf(line, "\tELEV:")) * kFeet, 16, 5);
    AppendText(dc, ValueOf(line, "\tDESC:"), 16);
    dc += ValueOf(line, "\tCDOR:");
    dc += ValueOf(line, "\tCDCL:");
    dc += "\r\n";
  }
}

template <class Files>
void PlainDcToIlj(Files& files) {
  files.out = kIljHead;
  for (std::string_view line; files.NextLine(line); files.Step()) {
    if (!line.starts_with("69")) continue;
    AppendIljPoint<Files>(files.out, WithoutBlanks(line.substr(4, 16)),
                          WithoutBlanks(line.substr(68, 16)), NumberIn(line.substr(20, 16)),
                          NumberIn(line.substr(36, 16)), NumberIn(line.substr(52, 16)));
  }
}

}  // namespace zelconvert::bench
