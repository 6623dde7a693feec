// An XML document that is built once and then written. A survey of a million shots has some thirty
// million elements, so an element is 32 bytes in a tree that holds them all, and CXmlElement is the
// handle by which one is reached.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <span>
#include <string>
#include <string_view>

#include "io/TextArena.h"

namespace zelconvert {

class CFileCE;
class CXmlTree;

/// Character data of an element or an attribute: a literal, which is kept by its address, or a text
/// that the tree copies as UTF-8. What is UTF-8 already is what AppendXmlCharacters makes.
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
  XmlText(const std::string& utf8) : m_utf8(utf8) {}   // NOLINT

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

/// One element of a tree; valid as long as the tree. A default-made handle is none and is false.
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
  /// Replaces the text.
  void SetText(XmlText text);
  /// As UTF-8, alive as long as the tree.
  std::string_view Text() const;
  /// What CXmlTree::Element takes: a handle in four bytes.
  std::uint32_t Index() const { return m_index; }
  /// Writes the element and what is beneath it as lines, indented by four blanks for each step of
  /// `depth`. HasWriteFailed of the file tells of a failed write.
  void Write(CFileCE& file, int depth) const;

 private:
  friend class CXmlTree;
  CXmlElement(CXmlTree* tree, std::uint32_t index) : m_tree(tree), m_index(index) {}

  CXmlTree* m_tree = nullptr;
  std::uint32_t m_index = 0;
};

class CXmlTree {
 public:
  explicit CXmlTree(const char* rootName);

  CXmlElement Root() { return {this, 0}; }
  CXmlElement Element(std::uint32_t index) { return {this, index}; }

 private:
  friend class CXmlElement;
  static constexpr std::uint32_t kNone = 0xFFFFFFFF;

  struct Node {
    explicit Node(const char* name, const char* text = "")
        : m_name(name), m_text(text), m_firstChild(kNone) {}
    explicit Node(std::span<const XmlFixedChild> children)
        : m_name(nullptr),
          m_fixedChildren(children.data()),
          m_fixedCount(static_cast<std::uint32_t>(children.size())) {}

    const char* m_name;  ///< null: the node stands for a table of children
    union {
      const char* m_text;  ///< UTF-8, not escaped
      const XmlFixedChild* m_fixedChildren;
    };
    union {
      std::uint32_t m_firstChild;
      std::uint32_t m_fixedCount;
    };
    std::uint32_t m_lastChild = kNone;
    std::uint32_t m_nextSibling = kNone;
    std::uint32_t m_firstAttribute : 28 = 0;
    std::uint32_t m_attributeCount : 3 = 0;
    std::uint32_t m_bNewLine : 1 = 0;
  };
  struct Attribute {
    const char* name;
    const char* value;
  };
  const char* Keep(const XmlText& text);
  std::uint32_t Append(std::uint32_t parent, const Node& node);
  void AppendTo(std::string& out, std::uint32_t index, int depth, CFileCE& file) const;

  std::deque<Node> m_nodes;
  std::deque<Attribute> m_attributes;
  TextArena m_texts;
  std::string m_utf8;
};

/// Appends `text` as UTF-8 that XML can hold. Characters below U+0020 but tab, LF and CR, halves of
/// surrogate pairs, U+FFFE and U+FFFF become U+FFFD.
void AppendXmlCharacters(std::string& out, std::wstring_view text);

/// Appends UTF-8 `text` for XML: the five characters of markup as entities, control characters as
/// "&#x%03x;", blanks at both ends of the result removed.
void AppendEscapedText(std::string& out, std::string_view text);

}  // namespace zelconvert
