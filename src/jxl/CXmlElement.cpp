#include "jxl/CXmlElement.h"

#include <algorithm>
#include <array>
#include <tuple>

#include "io/CFileCE.h"
#include "io/Strings.h"

namespace zelconvert {
namespace {

constexpr std::size_t kIndent = 4;
constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD

void AppendReference(std::string& out, unsigned code) {
  constexpr char kDigits[] = "0123456789abcdef";
  out += "&#x";
  for (int shift = 8; shift >= 0; shift -= 4) out += kDigits[(code >> shift) & 0xF];
  out += ';';
}

// Bytes that stand for themselves wherever they come: nearly all.
consteval std::array<bool, 256> PlainBytes() {
  std::array<bool, 256> plain = {};
  std::fill(plain.begin() + 0x20, plain.end(), true);
  for (const char c : std::string_view("\"&'<>\x7F\xC2\xEF"))
    plain[static_cast<unsigned char>(c)] = false;
  return plain;
}
constexpr auto kPlainBytes = PlainBytes();

const char* EntityOf(char c) {
  return c == '"'    ? "&quot;"
         : c == '&'  ? "&amp;"
         : c == '\'' ? "&apos;"
         : c == '<'  ? "&lt;"
         : c == '>'  ? "&gt;"
                     : nullptr;
}

// How many bytes at the start of the text are a control character that XML can hold: tab, LF and
// CR, and U+007F to 9F, which are C2 80 to C2 9F in UTF-8 after 7F.
std::size_t ControlLength(std::string_view text) {
  const auto c = static_cast<unsigned char>(text[0]);
  if (c == '\t' || c == '\n' || c == '\r' || c == 0x7F) return 1;
  return c == 0xC2 && text.size() > 1 && static_cast<unsigned char>(text[1]) < 0xA0 ? 2 : 0;
}

// The same for what XML can't hold. Halves of surrogate pairs don't come in UTF-8.
std::size_t ForbiddenLength(std::string_view text) {
  if (static_cast<unsigned char>(text[0]) < 0x20) return 1;
  return text.starts_with("\xEF\xBF\xBE") || text.starts_with("\xEF\xBF\xBF") ? 3 : 0;
}

// Appends what begins with a byte that isn't plain; how many bytes that was.
std::size_t AppendSpecial(std::string& out, std::string_view text) {
  if (const char* entity = EntityOf(text[0])) {
    out += entity;
    return 1;
  }
  if (const std::size_t length = ControlLength(text)) {
    AppendReference(out, static_cast<unsigned char>(text[length - 1]));
    return length;
  }
  if (const std::size_t length = ForbiddenLength(text)) {
    out += kReplacement;
    return length;
  }
  out += text[0];
  return 1;
}

/// What follows the name and the attributes of an element without children.
void AppendText(std::string& out, const char* name, std::string_view text) {
  if (text.empty()) {
    out += "/>\r\n";
    return;
  }
  out += '>';
  AppendEscapedText(out, text);
  out.append("</").append(name).append(">\r\n");
}

std::size_t IndentOf(int depth) {
  return kIndent * static_cast<std::size_t>(depth);
}

}  // namespace

void AppendEscapedText(std::string& out, std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  while (!text.empty()) {
    const auto special = std::find_if(text.begin(), text.end(), [](char c) {
      return !kPlainBytes[static_cast<unsigned char>(c)];
    });
    out.append(text.begin(), special);
    text.remove_prefix(static_cast<std::size_t>(special - text.begin()));
    if (!text.empty()) text.remove_prefix(AppendSpecial(out, text));
  }
}

std::string_view XmlText::Utf8(std::string& buffer) const {
  if (m_literal != nullptr) return m_literal;
  if (m_text.empty()) return m_utf8;
  buffer.clear();
  AppendUtf8(buffer, m_text);
  return buffer;
}

CXmlElement CXmlTree::Restart(const char* rootName, bool isSpaced) {
  m_nodes.clear();
  m_attributes.clear();
  m_texts.Clear();
  m_nodes.push_back({.m_name = rootName, .m_bNewLine = isSpaced});
  return {this, 0};
}

std::string_view CXmlTree::Keep(const XmlText& text) {
  const std::string_view utf8 = text.Utf8(m_utf8);
  return text.m_literal != nullptr || utf8.empty() ? utf8 : m_texts.Keep(utf8);
}

std::uint32_t CXmlTree::Append(std::uint32_t parent, const Node& node) {
  const auto index = static_cast<std::uint32_t>(m_nodes.size());
  m_nodes.push_back(node);
  Node& above = m_nodes[parent];
  if (above.m_lastChild == kNone) {
    above.m_firstChild = index;
  } else {
    m_nodes[above.m_lastChild].m_nextSibling = index;
  }
  above.m_lastChild = index;
  return index;
}

void CXmlElement::AddAttribute(const char* name, XmlText value) {
  CXmlTree::Node& node = m_tree->m_nodes[m_index];
  if (node.m_attributeCount++ == 0) {
    node.m_firstAttribute = static_cast<std::uint32_t>(m_tree->m_attributes.size());
  }
  m_tree->m_attributes.push_back({name, m_tree->Keep(value)});
}

CXmlElement CXmlElement::AddSpacedChild(const char* name) {
  return {m_tree, m_tree->Append(m_index, {.m_name = name, .m_bNewLine = true})};
}

CXmlElement CXmlElement::AddChild(const char* name, XmlText text) {
  return {m_tree, m_tree->Append(m_index, {.m_name = name, .m_text = m_tree->Keep(text)})};
}

void CXmlElement::AddFixedChildren(std::span<const XmlFixedChild> children) {
  m_tree->Append(m_index, {.m_fixedChildren = children});
}

void CXmlElement::Write(CFileCE& file, int depth) const {
  m_tree->AppendTree(m_index, depth);
  m_tree->Flush(file);
}

void CXmlElement::WriteStart(CFileCE& file, int depth) const {
  m_tree->AppendStart(m_tree->m_nodes[m_index], depth);
  m_tree->m_out += ">\r\n";
  m_tree->Flush(file);
}

void CXmlElement::WriteEnd(CFileCE& file, int depth) const {
  m_tree->AppendEnd(m_tree->m_nodes[m_index], depth);
  m_tree->Flush(file);
}

void CXmlTree::Flush(CFileCE& file) {
  std::ignore = file.Write(m_out.data(), m_out.size());
  m_out.clear();
}

void CXmlTree::AppendStart(const Node& node, int depth) {
  if (node.m_bNewLine) m_out += "\r\n";
  m_out.append(IndentOf(depth), ' ').append("<").append(node.m_name);
  for (std::uint32_t a = 0; a < node.m_attributeCount; ++a) {
    const Attribute& attribute = m_attributes[node.m_firstAttribute + a];
    m_out.append(" ").append(attribute.name).append("=\"");
    AppendEscapedText(m_out, attribute.value);
    m_out += '"';
  }
}

void CXmlTree::AppendEnd(const Node& node, int depth) {
  m_out.append(IndentOf(depth), ' ').append("</").append(node.m_name).append(">\r\n");
}

void CXmlTree::AppendTree(std::uint32_t index, int depth) {
  const Node& node = m_nodes[index];
  for (const XmlFixedChild& child : node.m_fixedChildren) {
    m_out.append(IndentOf(depth), ' ').append("<").append(child.name);
    AppendText(m_out, child.name, child.text);
  }
  if (node.m_name == nullptr) return;
  const bool hasText = !node.m_text.empty();
  AppendStart(node, depth);
  if (node.m_firstChild == kNone && !(hasText && node.m_bNewLine)) {
    return AppendText(m_out, node.m_name, node.m_text);
  }
  m_out += ">\r\n";
  if (hasText) {
    m_out.append(IndentOf(depth + 1), ' ');
    AppendEscapedText(m_out, node.m_text);
    m_out += "\r\n";
  }
  for (std::uint32_t child = node.m_firstChild; child != kNone;
       child = m_nodes[child].m_nextSibling) {
    AppendTree(child, depth + 1);
  }
  AppendEnd(node, depth);
}

}  // namespace zelconvert
