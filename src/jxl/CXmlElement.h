// XML elements that are built as a tree and then written. A tree holds a part of a document, such
// as one record; CXmlElement is the handle by which an element of it is reached.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "io/TextArena.h"

namespace zelconvert {

class CFileCE;
class CXmlTree;

/// Character data of an element or an attribute: a literal, which is kept by its address, or a text
/// that the tree copies as UTF-8.
class XmlText {
 public:
  XmlText() = default;
  template <std::size_t N>
  XmlText(const char (&literal)[N])
      : m_literal(literal) {}  // NOLINT: a literal is meant to convert
  /// A literal by its address.
  static XmlText Literal(const char* literal) {
    XmlText text;
    text.m_literal = literal;
    return text;
  }
  XmlText(std::wstring_view text) : m_text(text) {}    // NOLINT
  XmlText(const std::wstring& text) : m_text(text) {}  // NOLINT
  XmlText(std::string_view utf8) : m_utf8(utf8) {}     // NOLINT
  XmlText(const std::string& utf8) : m_utf8(utf8) {}   // NOLINT

  /// `buffer` holds the text where it isn't there in this form.
  std::string_view Utf8(std::string& buffer) const;

 private:
  friend class CXmlTree;
  const char* m_literal = nullptr;
  std::wstring_view m_text;
  std::string_view m_utf8;
};

/// A child that says the same in every document. Both are literals.
struct XmlFixedChild {
  const char* name;
  const char* text;
};

/// One element of a tree; valid until the tree is restarted. A default-made handle is none and is
/// false.
class CXmlElement {
 public:
  CXmlElement() = default;

  explicit operator bool() const { return m_tree != nullptr; }

  /// Attributes are written in the order of the calls, at most seven, all of them before the next
  /// element is made. Names are literals.
  void AddAttribute(const char* name, XmlText value);
  /// A new last child.
  CXmlElement AddChild(const char* name, XmlText text = {});
  /// New last children from a table that outlives the tree: all of them take the room of one.
  void AddFixedChildren(std::span<const XmlFixedChild> children);
  /// A new last child that is written after an empty line.
  CXmlElement AddSpacedChild(const char* name);
  /// Writes the element and what is beneath it as lines, indented by four blanks for each step of
  /// `depth`. HasWriteFailed of the file tells of a failed write.
  void Write(CFileCE& file, int depth) const;
  /// Writes the lines with which an element without text begins and ends, for one whose children
  /// are written between.
  void WriteStart(CFileCE& file, int depth) const;
  void WriteEnd(CFileCE& file, int depth) const;

 private:
  friend class CXmlTree;
  CXmlElement(CXmlTree* tree, std::uint32_t index) : m_tree(tree), m_index(index) {}

  CXmlTree* m_tree = nullptr;
  std::uint32_t m_index = 0;
};

class CXmlTree {
 public:
  /// Drops all elements but keeps their memory; the new root, which is written after an empty line
  /// if `isSpaced`.
  CXmlElement Restart(const char* rootName, bool isSpaced);

 private:
  friend class CXmlElement;
  static constexpr std::uint32_t kNone = 0xFFFFFFFF;

  struct Node {
    const char* m_name = nullptr;  ///< null: the node stands for a table of children
    std::string_view m_text = {};  ///< UTF-8, not escaped
    std::span<const XmlFixedChild> m_fixedChildren = {};
    bool m_bNewLine = false;
    std::uint32_t m_firstAttribute = 0;
    std::uint32_t m_attributeCount = 0;
    std::uint32_t m_firstChild = kNone;
    std::uint32_t m_lastChild = kNone;
    std::uint32_t m_nextSibling = kNone;
  };
  struct Attribute {
    const char* name;
    std::string_view value;
  };
  std::string_view Keep(const XmlText& text);
  std::uint32_t Append(std::uint32_t parent, const Node& node);
  void AppendStart(const Node& node, int depth);
  void AppendEnd(const Node& node, int depth);
  void AppendTree(std::uint32_t index, int depth);
  void Flush(CFileCE& file);

  std::vector<Node> m_nodes;
  std::vector<Attribute> m_attributes;
  TextArena m_texts;
  std::string m_utf8;
  std::string m_out;  // on its way to the file
};

/// Appends UTF-8 `text` for XML: the five characters of markup as entities, control characters as
/// "&#x%03x;", blanks at both ends of the result removed. What XML has no place for, be it as a
/// reference (others below U+0020 than tab, LF and CR, U+FFFE, U+FFFF), becomes U+FFFD.
void AppendEscapedText(std::string& out, std::string_view text);

}  // namespace zelconvert
