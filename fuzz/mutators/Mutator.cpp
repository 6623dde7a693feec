#include "mutators/Mutator.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <limits>
#include <random>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace zelconvert::mutation {
namespace {

using Records = std::vector<std::string>;

// Numbers and texts that a reader may not expect.
constexpr std::string_view kTexts[] = {"",
                                       "0",
                                       "-0",
                                       "1",
                                       "-1",
                                       "2",
                                       "9",
                                       "A",
                                       "a b",
                                       "1E",
                                       "inf",
                                       "-inf",
                                       "nan",
                                       "+1",
                                       ".",
                                       "-",
                                       "0x10",
                                       "1e308",
                                       "-1e308",
                                       "1e-320",
                                       "-9.99e27",
                                       "0.00000001",
                                       "0.5",
                                       "89.5959",
                                       "90",
                                       "180",
                                       "359.5959999",
                                       "359.99999999",
                                       "360",
                                       "400",
                                       "-360",
                                       "99.9999",
                                       "10000",
                                       "2147483647",
                                       "2147483648",
                                       "-2147483648",
                                       "4294967296",
                                       "9999999999999999",
                                       "-99999999999999",
                                       "0.3048",
                                       "12345678.90123456",
                                       "1:90",
                                       "09-31-2026",
                                       "24:60:60",
                                       "20260229",
                                       "\x80\xFF"};
constexpr double kReals[] = {0,
                             -0.0,
                             1,
                             -1,
                             0.5,
                             1e-320,
                             1e308,
                             -1e308,
                             2147483648.0,
                             1e16,
                             360,
                             3.141592653589793,
                             -9.99e27,
                             std::numeric_limits<double>::infinity(),
                             std::numeric_limits<double>::quiet_NaN()};
constexpr std::uint64_t kIntegers[] = {0,      1,      2,      3,          4,          5,
                                       7,      8,      99,     100,        101,        9999,
                                       0x7FFF, 0x8000, 0xFFFF, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};

class Mutation {
 public:
  Mutation(const Format& format, std::string_view bytes, unsigned seed)
      : m_format(format), m_records(format.split(bytes)), m_random(seed) {}

  void Change() {
    const std::size_t steps = 1 + Below(4);
    for (std::size_t i = 0; i < steps; ++i) Step();
  }
  void TakeFrom(std::string_view other) {
    const Records others = m_format.split(other);
    for (std::size_t i = Below(others.size()); i < others.size() && Below(8) > 0; ++i) {
      Insert(others[i]);
    }
  }
  std::string Result() const {
    std::string all;
    for (const std::string& record : m_records) all += record;
    return all;
  }

 private:
  std::size_t Below(std::size_t count) { return count == 0 ? 0 : m_random() % count; }
  template <class List>
  const auto& OneOf(const List& list) {
    return list[Below(std::size(list))];
  }

  void Step() {
    if (m_records.empty()) return Insert(OneOf(m_format.vocabulary));
    std::string& record = m_records[Below(m_records.size())];
    switch (Below(8)) {
      case 0:
        return Drop();
      case 1:
        return std::swap(record, m_records[Below(m_records.size())]);
      case 2:
        return Repeat();
      case 3:
        return Insert(OneOf(m_format.vocabulary));
      case 4:
        return ChangeBytes(record);
      case 5:
        return CopyField(record);
      default:
        return ChangeField(record);
    }
  }

  using Iterator = Records::iterator;
  Iterator At(std::size_t index) { return m_records.begin() + static_cast<std::ptrdiff_t>(index); }
  std::size_t RunFrom(std::size_t first) {  // mostly one record
    return first + 1 + (Below(4) == 0 ? Below(m_records.size() - first) : 0);
  }

  void Drop() {
    const std::size_t first = Below(m_records.size());
    m_records.erase(At(first), At(RunFrom(first)));
  }
  void Repeat() {
    const std::size_t first = Below(m_records.size());
    const Records run(At(first), At(RunFrom(first)));
    m_records.insert(At(Below(m_records.size() + 1)), run.begin(), run.end());
  }
  void Insert(const std::string& record) {
    m_records.insert(At(Below(m_records.size() + 1)), record);
  }
  void ChangeBytes(std::string& record) {
    const std::size_t size = record.size();
    record.resize(size + 16);
    record.resize(
        LLVMFuzzerMutate(reinterpret_cast<std::uint8_t*>(record.data()), size, record.size()));
  }

  std::vector<Field> FieldsOf(const std::string& record) const {
    return m_format.fieldsOf(record, &record == &m_records.front());
  }
  void ChangeField(std::string& record) {
    const std::vector<Field> fields = FieldsOf(record);
    if (!fields.empty()) Put(record, OneOf(fields));
  }
  void Put(std::string& record, const Field& field) { Put(record, field, NewValue(field)); }
  // What stands in a field of the same kind elsewhere: names that meet, numbers that are equal.
  void CopyField(std::string& record) {
    const std::string& source = OneOf(m_records);
    const std::vector<Field> from = FieldsOf(source), to = FieldsOf(record);
    if (from.empty() || to.empty()) return;
    const Field& one = OneOf(from);
    const Field& other = OneOf(to);
    if (one.start > source.size() || one.kind != other.kind) return;
    Put(record, other, source.substr(one.start, one.length));
  }

  std::string NewValue(const Field& field) {
    const auto bytesOf = [](const auto& value) {
      return std::string(reinterpret_cast<const char*>(&value), sizeof value);
    };
    switch (field.kind) {
      case Kind::Integer:
        return bytesOf(OneOf(kIntegers));
      case Kind::Real:
        return bytesOf(OneOf(kReals));
      case Kind::Utf16: {
        std::string units;
        for (const char c : OneOf(kTexts)) units.append({c, '\0'});
        return Below(8) == 0 ? std::string(field.length, '\xD8') : units;
      }
      default:
        return std::string(OneOf(kTexts));
    }
  }

  // Columns are filled up with blanks at either side, and the line before them; a line end stays.
  void Put(std::string& record, const Field& field, std::string value) {
    const bool isColumns = field.kind == Kind::Columns;
    const std::size_t missing = field.length - std::min(field.length, value.size());
    if (isColumns) value.insert(Below(2) * value.size(), missing, ' ');
    if (field.kind != Kind::Tagged) value.resize(field.length);
    const std::size_t end = isColumns ? record.find_last_not_of("\r\n") + 1 : record.size();
    if (isColumns && field.start > end) record.insert(end, field.start - end, ' ');
    if (field.start > record.size()) return;
    const std::size_t inPlace = end > field.start ? std::min(field.length, end - field.start) : 0;
    record.replace(field.start, inPlace, value);
  }

  const Format& m_format;
  Records m_records;
  std::minstd_rand m_random;
};

std::size_t Store(const std::string& made, std::uint8_t* data, std::size_t maxSize) {
  const std::size_t size = std::min(made.size(), maxSize);
  std::memcpy(data, made.data(), size);
  return size;
}

const Format& FormatOf(const Inputs& inputs, std::string_view bytes, unsigned seed) {
  std::vector<const Format*> fitting;
  for (const Format* format : inputs.formats) {
    if (bytes.starts_with(format->signature)) fitting.push_back(format);
  }
  const auto all = fitting.empty() ? inputs.formats : std::span<const Format* const>(fitting);
  return *all[seed / 7 % all.size()];
}

}  // namespace

std::size_t Mutate(const Inputs& inputs, std::uint8_t* data, std::size_t size, std::size_t maxSize,
                   unsigned seed) {
  if (size < inputs.prefix || seed % 5 == 0) return LLVMFuzzerMutate(data, size, maxSize);
  const std::string_view all(reinterpret_cast<const char*>(data), size);
  std::size_t start = inputs.prefix, end = size;
  const std::size_t between = inputs.arePairs ? all.find('\x1E', start) : all.npos;
  if (between != all.npos) (seed % 2 == 0 ? end : start) = between + seed % 2;
  const std::string_view file = all.substr(start, end - start);
  Mutation mutation(FormatOf(inputs, file, seed), file, seed);
  mutation.Change();
  const std::string before(all.substr(0, start)), after(all.substr(end));
  return Store(before + mutation.Result() + after, data, maxSize);
}

std::size_t CrossOver(const Inputs& inputs, std::string_view one, std::string_view other,
                      std::uint8_t* data, std::size_t maxSize, unsigned seed) {
  Mutation mutation(FormatOf(inputs, one, seed), one, seed);
  mutation.TakeFrom(other);
  return Store(mutation.Result(), data, maxSize);
}

}  // namespace zelconvert::mutation
