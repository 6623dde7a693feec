// What the mutator knows of a format: how a file falls into records, a record of every kind, and
// where the fields of a record are. All of it comes from the tables that the reader and the writer
// use.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zelconvert::mutation {

enum class Kind : std::uint8_t {
  Columns,  ///< of a line; what is put there is filled up with blanks, or cut
  Tagged,   ///< of a line, of any length
  Integer,  ///< of a block, little-endian
  Real,
  Utf16,
};

/// A field of a record: where it stands there, in bytes.
struct Field {
  Kind kind;
  std::size_t start;
  std::size_t length;
};

struct Format {
  std::string_view signature;  ///< that most files of the format begin with
  /// Put together, the records are the file again. What stands before the first one is a record,
  /// too.
  std::vector<std::string> (*split)(std::string_view bytes);
  /// In front: of the record that a file begins with. The fields may overlap; those of a record
  /// that is cut off may lie after its end.
  std::vector<Field> (*fieldsOf)(std::string_view record, bool isFirst);
  /// A record of each kind.
  std::vector<std::string> vocabulary;
};

const Format& DcFormat();
const Format& RawFormat();
const Format& IljFormat();
const Format& SdrFormat();
const Format& JobFormat();
const Format& Cr5Format();

// What formats of lines have in common.

/// Each with its line end.
std::vector<std::string> SplitLines(std::string_view bytes);
/// The values of fields with a separator in front and a tag of `tagLength` characters.
std::vector<Field> TaggedFields(std::string_view line, char separator, std::size_t tagLength);

// What formats of blocks have in common.

/// Collects the fields of a record that states its layout as a walk (io/BinaryFields.h).
class FieldCollector {
 public:
  /// base: where the record's block stands in what is mutated.
  FieldCollector(std::vector<Field>& fields, std::size_t base) : m_fields(fields), m_base(base) {}

  void Field(std::size_t offset, const double& /*value*/) { Add(Kind::Real, offset, 8); }
  template <class Integer>
  void Field(std::size_t offset, const Integer& /*value*/) {
    Add(Kind::Integer, offset, sizeof(Integer));
  }
  void Text(std::size_t offset, const std::wstring& /*text*/, std::size_t units) {
    Add(Kind::Utf16, offset, 2 * units);
  }
  template <class Bytes>
  void Bytes(std::size_t offset, const Bytes& bytes) {
    Add(Kind::Columns, offset, bytes.size());
  }

 private:
  void Add(Kind kind, std::size_t offset, std::size_t length) {
    m_fields.push_back({kind, m_base + offset, length});
  }

  std::vector<mutation::Field>& m_fields;
  std::size_t m_base;
};

}  // namespace zelconvert::mutation
