// JobXML read back by an XML parser of others.
#include <gtest/gtest.h>

#include <pugixml.hpp>
#include <string>
#include <vector>

#include "TempDir.h"
#include "io/Strings.h"
#include "jxl/CJxlFile.h"

namespace zelconvert {
namespace {

std::string Utf8(const std::wstring& text) {
  std::string utf8;
  AppendUtf8(utf8, text);
  return utf8;
}

// A document can't hold some characters, whatever they are written as.
bool IsHeld(unsigned c) {
  return c == '\t' || c == '\n' || c == '\r' || (c >= 0x20 && c < 0xD800) || c == 0xFFFD;
}

TEST(Jxl, HoldsEveryTextWellFormed) {
  std::vector<std::wstring> texts, held;
  std::vector<unsigned> characters = {0xD800, 0xDFFF, 0xFFFD, 0xFFFE, 0xFFFF};
  for (unsigned c = 0; c < 0x2100; ++c) characters.push_back(c);
  for (const unsigned c : characters) {
    texts.push_back(L"a " + std::wstring(1, static_cast<wchar_t>(c)) + L" z");
    held.push_back(IsHeld(c) ? texts.back() : L"a \uFFFD z");
  }
  texts.push_back(L"]]>&amp;&#x41;<!-- --><![CDATA[x]]><?y?>\"'\x1F");
  held.push_back(texts.back().substr(0, texts.back().size() - 1) + L"\uFFFD");

  const TempDir folder;
  CJxlFile file(true);
  EXPECT_EQ(file.AddNoteRecord("no document yet"), 0u);
  ASSERT_TRUE(file.Create(folder.Path(L"out.jxl")));
  file.WriteDocument();
  file.BeginDocument(texts.back(), texts.back(), {});
  for (const std::wstring& text : texts) file.AddStationRecord(text, 0);
  file.WriteDocument();
  ASSERT_TRUE(file.Close());

  pugi::xml_document document;
  const std::string bytes = folder.Read(L"out.jxl");
  const auto parsed =
      document.load_buffer(bytes.data(), bytes.size(), pugi::parse_full, pugi::encoding_utf8);
  ASSERT_TRUE(parsed) << parsed.description() << " at " << parsed.offset;
  EXPECT_EQ(document.child("JOBFile").attribute("jobName").value(), Utf8(held.back()));
  std::size_t next = 0;
  for (const auto& record : document.child("JOBFile").child("FieldBook")) {
    ASSERT_LT(next, held.size());
    EXPECT_EQ(record.child("StationName").text().get(), Utf8(held[next]));
    ++next;
  }
  EXPECT_EQ(next, held.size());
}

// No record has text beside children, or a text after an empty line.
TEST(Jxl, WritesTextBesideChildren) {
  const TempDir folder;
  CFileCE file;
  ASSERT_TRUE(file.OpenForWrite(folder.Path(L"out.xml")));
  CXmlTree tree;
  CXmlElement root = tree.Restart("root", true);
  CXmlElement mixed = root.AddChild("mixed", "a & b");
  mixed.AddChild("child", "c");
  root.AddChild("empty");
  root.Write(file, 1);
  EXPECT_TRUE(file.Close());
  EXPECT_EQ(folder.Read(L"out.xml"),
            "\r\n    <root>\r\n        <mixed>\r\n            a &amp; b\r\n"
            "            <child>c</child>\r\n        </mixed>\r\n        <empty/>\r\n"
            "    </root>\r\n");
}

}  // namespace
}  // namespace zelconvert
