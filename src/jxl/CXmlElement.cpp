#include "jxl/CXmlElement.h"

#include <algorithm>

#include "io/CFileCE.h"
#include "io/Strings.h"
#include "platform/Utf8.h"

namespace zelconvert {
namespace {

// Lines are gathered up to this size before they go to the file.
constexpr std::size_t kBlock = 1 << 16;
constexpr std::size_t kIndent = 4;

void AppendReference(std::string& out, unsigned code) {
  constexpr char kDigits[] = "0123456789abcdef";
  out += "&#x";
  for (int shift = 8; shift >= 0; shift -= 4) out += kDigits[(code >> shift) & 0xF];
  out += ';';
}

// Control characters that XML can hold: tab, LF and CR, and U+007F to 9F, which are C2 80 to C2 9F
// in UTF-8 after 7F.
bool IsControl(unsigned char c) {
  return c < 0x20 || c == 0x7F;
}
bool IsHighControl(std::string_view text, std::size_t at) {
  return static_cast<unsigned char>(text[at]) == 0xC2 && at + 1 < text.size() &&
         static_cast<unsigned char>(text[at + 1]) < 0xA0;
}

void AppendEscaped(std::string& out, std::string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto c = static_cast<unsigned char>(text[i]);
    switch (c) {
      case '"':
        out += "&quot;";
        break;
      case '&':
        out += "&amp;";
        break;
      case '\'':
        out += "&apos;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      default:
        if (IsControl(c)) {
          AppendReference(out, c);
        } else if (IsHighControl(text, i)) {
          AppendReference(out, static_cast<unsigned char>(text[++i]));
        } else {
          out += static_cast<char>(c);
        }
    }
  }
}

/// What follows the name and the attributes of an element without children.
void AppendText(std::string& out, const char* name, const char* text) {
  if (*text == '\0') {
    out += "/>\r\n";
    return;
  }
  out += '>';
  AppendEscapedText(out, text);
  out.append("</").append(name).append(">\r\n");
}

void AppendFixedChild(std::string& out, const XmlFixedChild& child, std::size_t indent) {
  out.append(indent, ' ').append("<").append(child.name);
  AppendText(out, child.name, child.text);
}

// What an XML 1.0 document can't hold, be it as a reference. Halves of pairs fall to AppendUtf8.
bool IsForbidden(wchar_t c) {
  const auto code = static_cast<char32_t>(c);
  return (code < 0x20 && c != L'\t' && c != L'\n' && c != L'\r') || code == 0xFFFE ||
         code == 0xFFFF;
}

}  // namespace

void AppendXmlCharacters(std::string& out, std::wstring_view text) {
  while (!text.empty()) {
    const auto forbidden = std::find_if(text.begin(), text.end(), IsForbidden);
    const auto clean = static_cast<std::size_t>(forbidden - text.begin());
    AppendUtf8(out, text.substr(0, clean));
    if (forbidden == text.end()) return;
    platform::AppendUtf8(out, platform::kReplacementCharacter);
    text.remove_prefix(clean + 1);
  }
}

void AppendEscapedText(std::string& out, std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  AppendEscaped(out, text);
}

CXmlTree::CXmlTree(const char* rootName) {
  m_nodes.push_back(Node(rootName));
}

const char* CXmlTree::Keep(const XmlText& text) {
  if (text.m_literal != nullptr) return text.m_literal;
  if (text.m_text.empty() && text.m_utf8.empty()) return "";
  m_utf8 = text.m_utf8;
  AppendXmlCharacters(m_utf8, text.m_text);
  return m_texts.Keep(m_utf8);
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
  if (node.m_attributeCount == 0) {
    node.m_firstAttribute = m_tree->m_attributes.size() & 0xFFFFFFFu;
  }
  node.m_attributeCount = (node.m_attributeCount + 1) & 7u;
  m_tree->m_attributes.push_back({name, m_tree->Keep(value)});
}

CXmlElement CXmlElement::AddSpacedChild(const char* name) {
  CXmlTree::Node node(name);
  node.m_bNewLine = 1;
  return {m_tree, m_tree->Append(m_index, node)};
}

CXmlElement CXmlElement::AddChild(const char* name, XmlText text) {
  return {m_tree, m_tree->Append(m_index, CXmlTree::Node(name, m_tree->Keep(text)))};
}

void CXmlElement::AddFixedChildren(std::span<const XmlFixedChild> children) {
  m_tree->Append(m_index, CXmlTree::Node(children));
}

void CXmlElement::SetText(XmlText text) {
  m_tree->m_nodes[m_index].m_text = m_tree->Keep(text);
}

std::string_view CXmlElement::Text() const {
  return m_tree->m_nodes[m_index].m_text;
}

void CXmlElement::Write(CFileCE& file, int depth) const {
  std::string out;
  out.reserve(kBlock + kBlock / 4);
  m_tree->AppendTo(out, m_index, depth, file);
  file.Write(out.data(), out.size());
}

void CXmlTree::AppendTo(std::string& out, std::uint32_t index, int depth, CFileCE& file) const {
  const Node& node = m_nodes[index];
  const std::size_t indent = kIndent * static_cast<std::size_t>(depth);
  if (node.m_name == nullptr) {
    for (const XmlFixedChild& child : std::span(node.m_fixedChildren, node.m_fixedCount)) {
      AppendFixedChild(out, child, indent);
    }
    return;
  }
  const bool hasText = *node.m_text != '\0';
  const bool hasChildren = node.m_firstChild != kNone;

  if (node.m_bNewLine) out += "\r\n";
  out.append(indent, ' ').append("<").append(node.m_name);
  for (std::uint32_t a = 0; a < node.m_attributeCount; ++a) {
    const Attribute& attribute = m_attributes[node.m_firstAttribute + a];
    out.append(" ").append(attribute.name).append("=\"");
    AppendEscapedText(out, attribute.value);
    out += '"';
  }
  if (!hasChildren && !(hasText && node.m_bNewLine)) {
    return AppendText(out, node.m_name, node.m_text);
  }
  out += ">\r\n";
  if (hasText) {
    out.append(indent + kIndent, ' ');
    AppendEscapedText(out, node.m_text);
    out += "\r\n";
  }
  for (std::uint32_t child = node.m_firstChild; child != kNone;
       child = m_nodes[child].m_nextSibling) {
    AppendTo(out, child, depth + 1, file);
  }
  out.append(indent, ' ').append("</").append(node.m_name).append(">\r\n");
  if (out.size() >= kBlock) {
    file.Write(out.data(), out.size());
    out.clear();
  }
}

}  // namespace zelconvert
