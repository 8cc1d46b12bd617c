// Workbooks that others made: what is found in good ones, why the others are refused, and what a fill leaves.
#include "adapters/workbook/template_book.h"

#include <fstream>
#include <map>

#include "adapters/workbook/package.h"
#include "tests/workbook/fixture.h"

namespace vmgv::test {
namespace {

using namespace workbook;

using Parts = std::map<std::string, std::string>;

// As any program may have written it: prefixes, rooted and relative targets, names in another case.
Parts goodParts() {
  const std::string kTypes = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";
  return {{"[Content_Types].xml",
           "<Types><Override PartName='/XL/book.xml' ContentType='application/"
           "vnd.openxmlformats-officedocument.spreadsheetml.template.main+xml'/></Types>"},
          {"_rels/.rels", "<r:Relationships xmlns:r='r'><r:Relationship Id='a' Type='" + kTypes +
                              "officeDocument' Target='/xl/book.xml'/></r:Relationships>"},
          {"xl/book.xml",
           "\xEF\xBB\xBF<?xml version='1.0'?><x:workbook xmlns:x='x' xmlns:r='r'><x:sheets><!-- two -->"
           "<x:sheet name='Πωλήσεις &amp; &#x3A9;' sheetId='1' r:id='c'/>"
           "<x:sheet name='Data' sheetId='2' r:id='d'></x:sheet></x:sheets></x:workbook>"},
          {"xl/_rels/book.xml.rels",
           "<Relationships><Relationship Id='c' Type='" + kTypes +
               "chartsheet' Target='../charts/./c.xml'/>" + "<Relationship Id='d' Type='" + kTypes +
               "worksheet' Target='Sheets/D.xml'/>" + "<Relationship Id='e' Type='" + kTypes +
               "hyperlink' Target='http://example.org' TargetMode='External'/></Relationships>"},
          {"charts/c.xml", "<chartsheet/>"},
          {"xl/sheets/d.xml", "<worksheet><sheetData/></worksheet>"},
          {"xl/media/image.bin", std::string(70000, '\1')}};
}

class TemplateTest : public WorkbookTest {
 protected:
  void write(const Parts& parts) {
    ReplacementFile file(targetPath());
    Package package(file);
    for (const auto& [name, text] : parts) package.add(name.c_str(), text);
    package.finish();
    file.commit();
  }
  std::string bytes() const {
    std::ifstream file(target, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  void writeBytes(const std::string& bytes) const {
    std::ofstream(target, std::ios::binary | std::ios::trunc)
        .write(bytes.data(), static_cast<int>(bytes.size()));
  }
  std::string refusal() {
    try {
      const TemplateBook opened(targetPath());
    } catch (const Error& error) {
      const std::string text = error.description(), path = targetPath();
      EXPECT_EQ(1004, error.number());
      const std::size_t at = text.find(path + " cannot be opened: ");
      return at == text.npos ? text : text.substr(at + path.size() + 19);
    }
    return "none";
  }
};

TEST_F(TemplateTest, SheetsAndTheirPartsAreFound) {
  write(goodParts());
  const TemplateBook opened(targetPath());
  ASSERT_EQ(2u, opened.sheets().size());
  EXPECT_EQ("Πωλήσεις & Ω", opened.sheets()[0].name);
  EXPECT_EQ("charts/c.xml", opened.sheets()[0].part);
  EXPECT_FALSE(opened.sheets()[0].isWorksheet);
  EXPECT_EQ(&opened.sheets()[1], opened.sheet("dATA"));
  EXPECT_TRUE(opened.sheets()[1].isWorksheet);
  EXPECT_EQ(nullptr, opened.sheet("Dat"));
  EXPECT_EQ(2u, opened.relationshipsOf("xl/book.xml").size());
  EXPECT_TRUE(opened.relationshipsOf("xl/sheets/d.xml").empty());
}

TEST_F(TemplateTest, PartsThatAreNotRightAreNamed) {
  const struct {
    const char *part, *text, *refusal;  // text: null where the part is missing
  } cases[] = {
      {"[Content_Types].xml", nullptr, "it has no part [Content_Types].xml"},
      {"[Content_Types].xml", "<Types/>", "it is no workbook"},
      {"[Content_Types].xml",
       "<T><Override PartName='/xl/book.xml' ContentType='application/"
       "vnd.ms-excel.sheet.binary.macroEnabled.main'/></T>",
       "it is a binary workbook"},
      {"_rels/.rels", "<Relationships/>", "it is no workbook"},
      {"xl/book.xml", "<workbook><sheets/></workbook>", "it has no sheets"},
      {"xl/sheets/d.xml", nullptr, "the part of its sheet \"Data\" is missing"},
      {"xl/book.xml", "<!DOCTYPE w [<!ENTITY a 'aa'>]><w/>",
       "xl/book.xml is damaged: it has a document type"},
      {"xl/book.xml", "<w>&lol;</w>", "it has no sheets"},  // a text that nobody reads
      {"xl/book.xml", "<w><sheet name='&lol;'/></w>", "there is no entity &lol; (at byte 25)"},
      {"xl/sheets/d.xml", "<a><b></a></b>", "xl/sheets/d.xml is damaged: the element that ends"},
      {"xl/sheets/d.xml", "<a><b>", "it ends too early (at byte 7)"},
      {"xl/sheets/d.xml", "<a/><b/>", "a second root element"},
      {"xl/sheets/d.xml", "<a b='1'c='2'/>", "a space is missing (at byte 9)"},
      {"xl/sheets/d.xml", "<a b='1", "an attribute's value does not end"},
      {"xl/sheets/d.xml", "<a b=1/>", "has no quotes"},
      {"xl/sheets/d.xml", "<a>\xC3(</a>", "it is not in UTF-8"},
      {"xl/sheets/d.xml", "\n", "it ends too early (at byte 2)"},
  };
  for (const auto& c : cases) {
    Parts parts = goodParts();
    c.text ? void(parts[c.part] = c.text) : void(parts.erase(c.part));
    write(parts);
    const std::string text = refusal();
    EXPECT_NE(text.npos, text.find(c.refusal)) << c.part << ": " << text;
  }
  Parts deep = goodParts();
  std::string opened;
  for (int i = 0; i < 100000; ++i) opened += "<a>";
  deep["xl/sheets/d.xml"].insert(0, opened);
  write(deep);
  EXPECT_NE(std::string::npos, refusal().find("nested too deep"));
}

// A compound file of 512-byte sectors: the table, the directory, and a workbook's stream that begins so.
std::string oldBook(std::string_view records) {
  std::string file(11 * 512, '\0');
  const auto put = [&file](std::size_t at, std::string_view bytes) { file.replace(at, bytes.size(), bytes); };
  const auto put32 = [&](std::size_t at, std::uint32_t number) {
    for (std::size_t i = 0; i < 4; ++i) file[at + i] = static_cast<char>(number >> 8 * i);
  };
  put(0, "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1");
  file[30] = 9;
  put32(48, 1);  // the directory's sector
  put32(68, 0xFFFFFFFE);
  for (std::size_t i = 1; i < 109; ++i) put32(76 + 4 * i, 0xFFFFFFFF);
  put32(516, 0xFFFFFFFE);
  for (std::uint32_t sector = 2; sector < 10; ++sector)
    put32(512 + 4 * sector, sector < 9 ? sector + 1 : 0xFFFFFFFE);
  for (std::size_t i = 0; i < 8; ++i) file[1024 + 2 * i] = "Workbook"[i];
  file[1024 + 64] = 18;
  put32(1024 + 116, 2);
  put32(1024 + 120, 4096);
  put(1536, records);
  return file;
}

TEST_F(TemplateTest, ContainersThatAreNotRightAreRefused) {
  write(goodParts());
  const std::string good = bytes(), compound("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1");
  const std::size_t directory = good.find("PK\1\2");
  const auto with = [&](std::size_t at, const std::string& other) {
    return std::string(good).replace(at, other.size(), other);
  };
  // A compound file of one sector of 512 bytes that lists itself as its table and its directory.
  std::string protectedBook(1024, '\0'), entry = "EncryptedPackage";
  protectedBook.replace(0, 8, compound);
  protectedBook[30] = 9;
  for (std::size_t i = 0; i < entry.size(); ++i) protectedBook[512 + 128 + 2 * i] = entry[i];
  protectedBook[512 + 128 + 64] = static_cast<char>(2 * (entry.size() + 1));

  const std::pair<std::string, const char*> cases[] = {
      {"", "it is empty"},
      {"PK", "it is no workbook"},
      {"name,price\nfig,3\n", "it is no workbook"},
      {good.substr(0, good.size() / 2), "it is cut short or damaged"},
      {good.substr(1000), "it is no workbook"},
      {compound, "it is no workbook, or damaged"},
      {std::string(protectedBook).replace(512, 512, 512, '\0'), "it is no workbook, or damaged"},
      {protectedBook, "it is protected by a password"},
      {oldBook("\x2F\x00"), "it is damaged"},
      {oldBook({"\x09\x08\x02\x00  \x2F", 7}), "it is protected by a password"},
      {oldBook({"\x09\x08\x02\x00  \x2F", 7}).substr(0, 4096), "it is damaged"},
      {with(directory + 8, {'\1'}), "it is protected by a password"},
      {with(directory + 10, {'\14'}), "packed in a way that is not supported"},
      {with(directory + 16, {'\0', '\0'}), "its part [Content_Types].xml is damaged"},  // the checksum
      {with(directory + 24, {'\1', '\0'}), "its part [Content_Types].xml is damaged"},  // the size
      {with(directory + 42, {'\1'}), "its part [Content_Types].xml is damaged"},        // the place
      {with(directory + 28, {'\377', '\377'}), "its container is damaged"},             // the name's length
      {with(60, std::string(20, '\377')), "its part [Content_Types].xml is damaged"},
  };
  for (const auto& [file, expected] : cases) {
    writeBytes(file);
    const std::string text = refusal();
    EXPECT_NE(text.npos, text.find(expected)) << expected << " but " << text;
  }
  for (const auto& [part, size, expected] :
       {std::tuple("CHARTS/c.xml", 9, "two parts called charts/c.xml"),
        std::tuple("xl/media/zeros.bin", 100'000'000, "it would be more than 100 times as large")}) {
    Parts parts = goodParts();
    parts[part].assign(static_cast<std::size_t>(size), '\0');
    write(parts);
    const std::string text = refusal();
    EXPECT_NE(text.npos, text.find(expected)) << expected << " but " << text;
  }
  // Any byte may be wrong: there is a result.
  for (std::size_t at = directory; at < good.size(); ++at) {
    writeBytes(with(at, {static_cast<char>(good[at] ^ 0x55)}));
    refusal();
  }
}

const std::string kRelation = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";

std::string relationship(const std::string& id, const std::string& type, const std::string& target) {
  return "<Relationship Id='" + id + "' Type='" + kRelation + type + "' Target='" + target + "'/>";
}

// A template with all that depends on the rows of its sheet.
Parts templateParts() {
  Parts parts = goodParts();
  parts["[Content_Types].xml"].insert(7,
                                      "<Override PartName='/xl/chain.xml' ContentType='c'/><Override "
                                      "PartName='/xl/table.xml' ContentType='t'/>");
  parts["xl/book.xml"] =
      "<workbook><sheets><sheet name='Report' r:id='r'/><sheet name='Data' r:id='d'/></sheets><definedNames>"
      "<definedName name='_xlnm._FilterDatabase' localSheetId='1'>Data!$A$1:$B$4</definedName></definedNames>"
      "<extLst/></workbook>";
  parts["xl/_rels/book.xml.rels"] =
      "<Relationships>" + relationship("r", "worksheet", "sheets/r.xml") +
      relationship("d", "worksheet", "sheets/d.xml") + relationship("s", "styles", "styles.xml") +
      relationship("c", "calcChain", "chain.xml") + relationship("p", "pivotCacheDefinition", "pivot.xml") +
      "</Relationships>";
  parts["xl/sheets/r.xml"] =
      "<worksheet><sheetData><row><c r='A1' t='str'><f>SUM(Data!B:B)</f><v>old</v></c><c "
      "r='B1'><v>7</v></c></row>"
      "</sheetData></worksheet>";
  parts["xl/styles.xml"] =
      "<x:styleSheet><x:numFmts count='1'><x:numFmt numFmtId='170' formatCode='0.00'/></x:numFmts><x:cellXfs "
      "count='3'>"
      "<x:xf numFmtId='0'/><x:xf numFmtId='170' fontId='4'/><x:xf numFmtId='49'><x:alignment "
      "indent='1'/></x:xf>"
      "</x:cellXfs></x:styleSheet>";
  parts["xl/sheets/d.xml"] =
      "<worksheet><sheetPr filterMode='1'/><dimension ref='A1:F9'/><cols>\n<col min='2' max='4' style='1' "
      "hidden='1'/></cols>"
      "<sheetData><row r='1' spans='1:2'><c r='A1' s='2' t='s'><v>0</v></c></row><row r='2' hidden='1' "
      "ht='9'/>"
      "<row r='3' ht='30' customHeight='1'><c r='F3' s='1'><f>A1</f><v>1</v></c></row><row r='5'><c r='A5' "
      "s='1'/></row>"
      "</sheetData><autoFilter ref='A1:B4'><filterColumn colId='0'/></autoFilter><mergeCells count='2'>"
      "<mergeCell ref='A2:B2'/><mergeCell ref='E9:F9'/></mergeCells><pageMargins left='1'/><tableParts "
      "count='1'>"
      "<tablePart r:id='t'/></tableParts></worksheet>";
  parts["xl/sheets/_rels/d.xml.rels"] =
      "<Relationships>" + relationship("t", "table", "../table.xml") + "</Relationships>";
  parts["xl/table.xml"] =
      "<table id='1' displayName='Prices' ref='A1:C4'><autoFilter ref='A1:C4'/><tableColumns count='3'>"
      "<tableColumn id='1' name='a' dataDxfId='5'/><tableColumn id='2' name='b'/><tableColumn id='3' "
      "name='c'/>"
      "</tableColumns></table>";
  parts["xl/pivot.xml"] =
      "<pivot><cacheSource type='worksheet'><worksheetSource ref='A1:C4' "
      "sheet='Data'/></cacheSource></pivot>";
  parts["xl/chain.xml"] = "<calcChain/>";
  return parts;
}

class FillTest : public TemplateTest {
 protected:
  void open(const Parts& parts) {
    write(parts);
    std::filesystem::rename(target, folder / "t.xltx");
    application = makeWorkbookApplication(*this);
    book = application.object("Workbooks").object("Open", textOf(folder / "t.xltx"));
    sheet = book.object("Sheets", "Data");
    sheet.object("Cells").call("ClearContents");
  }
  void fillRows() {
    put(1, 1, "name"), put(1, 2, "price");
    put(2, 1, "fig"), put(2, 2, 3);
    sheet.object("Cells", 3, 2).put("NumberFormat", "@");
    put(3, 2, "a\nb");
  }
  std::string part(const char* name) const {
    const PackageReader package(published);
    const PackagePart* const found = package.find(name);
    return found ? package.text(*found) : "none";
  }
};

TEST_F(FillTest, RowsTakeThePlaceOfTheOldOnesAndAllElseFollows) {
  open(templateParts());
  fillRows();
  sheet.object("Cells").object("EntireColumn").call("AutoFit");
  book.object("PivotCaches").item(1).object().call("Refresh");
  show();
  const std::string kMain = " xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"";
  const std::string kText = " t=\"inlineStr\"><is><t>", kTextEnd = "</t></is></c>";
  EXPECT_EQ(
      "<worksheet><sheetPr/><dimension" + kMain + " ref=\"A1:F5\"/><cols" + kMain +
          "><col max=\"1\" min=\"1\" customWidth=\"1\" bestFit=\"1\" width=\"5.71\"/>"
          "<col customWidth=\"1\" bestFit=\"1\" width=\"6.71\" min=\"2\" max=\"2\" style='1' hidden='1'/>"
          "<col min=\"3\" max=\"4\" style='1' hidden='1'/></cols><sheetData" +
          kMain + "><row r=\"1\"><c r=\"A1\" s=\"2\"" + kText + "name" + kTextEnd + "<c s=\"1\"" + kText +
          "price" + kTextEnd + "</row><row r=\"2\"><c r=\"A2\"" + kText + "fig" + kTextEnd +
          "<c s=\"1\"><v>3</v></c></row><row r=\"3\" ht='30' customHeight='1'><c r=\"B3\" s=\"3\"" + kText +
          "a\nb" + kTextEnd +
          "<c r=\"F3\" s=\"1\"/></row><row r=\"5\"><c r=\"A5\" s=\"1\"/></row></sheetData>"
          "<autoFilter" +
          kMain + " ref=\"A1:B3\"/><mergeCells" + kMain +
          "><mergeCell ref=\"E9:F9\"/></mergeCells>"
          "<pageMargins left='1'/><tableParts count='1'><tablePart r:id='t'/></tableParts></worksheet>",
      part("xl/sheets/d.xml"));
  EXPECT_EQ(
      "<x:styleSheet><x:numFmts count='1'><x:numFmt numFmtId='170' formatCode='0.00'/></x:numFmts>"
      "<x:cellXfs count=\"4\"><x:xf numFmtId='0'/><x:xf numFmtId='170' fontId='4'/>"
      "<x:xf numFmtId='49'><x:alignment indent='1'/></x:xf><x:xf applyAlignment=\"1\" applyNumberFormat=\"1\""
      " numFmtId=\"49\" fontId='4'><x:alignment wrapText=\"1\"/></x:xf></x:cellXfs></x:styleSheet>",
      part("xl/styles.xml"));
  EXPECT_EQ(
      "<worksheet><sheetData><row><c r='A1'><f>SUM(Data!B:B)</f></c><c "
      "r='B1'><v>7</v></c></row></sheetData></worksheet>",
      part("xl/sheets/r.xml"));
  EXPECT_EQ(
      "<table id='1' displayName='Prices' ref=\"A1:B3\"><autoFilter ref=\"A1:B3\"/><tableColumns count=\"2\">"
      "<tableColumn id='1' name=\"name\" dataDxfId='5'/><tableColumn id='2' "
      "name=\"price\"/></tableColumns></table>",
      part("xl/table.xml"));
  EXPECT_EQ(
      "<pivot refreshOnLoad=\"1\"><cacheSource type='worksheet'><worksheetSource ref=\"A1:B3\" sheet='Data'/>"
      "</cacheSource></pivot>",
      part("xl/pivot.xml"));
  const std::string workbook = part("xl/book.xml");
  EXPECT_NE(workbook.npos,
            workbook.find("localSheetId='1'>'Data'!$A$1:$B$3</definedName></definedNames><calcPr" + kMain +
                          " fullCalcOnLoad=\"1\"/><extLst/>"));
  EXPECT_EQ("none", part("xl/chain.xml"));
  EXPECT_EQ(std::string::npos, part("xl/_rels/book.xml.rels").find("calcChain"));
  const std::string types = part("[Content_Types].xml");
  EXPECT_EQ(std::string::npos, types.find("chain"));
  EXPECT_NE(std::string::npos, types.find("spreadsheetml.sheet.main+xml"));
  EXPECT_EQ(templateParts()["xl/media/image.bin"], part("xl/media/image.bin"));
  EXPECT_EQ(2u, filesInFolder());
}

TEST_F(FillTest, ATableThatCannotHoldTheRowsIsGivenUp) {
  Parts parts = templateParts();
  parts["xl/pivot.xml"] = "<pivot><worksheetSource name='prices'/></pivot>";
  parts["xl/book.xml"].replace(parts["xl/book.xml"].find("<extLst/>"), 9, "<calcPr calcId='1'/>");
  open(parts);
  fillRows();
  range(3, 1, 2).call("Merge");
  show();
  EXPECT_EQ("none", part("xl/table.xml"));
  EXPECT_EQ("<Relationships></Relationships>", part("xl/sheets/_rels/d.xml.rels"));
  EXPECT_EQ(std::string::npos, part("[Content_Types].xml").find("table"));
  EXPECT_EQ(std::string::npos, part("xl/sheets/d.xml").find("tablePart"));
  EXPECT_EQ("<pivot><worksheetSource ref=\"A1:B3\" sheet=\"Data\"/></pivot>", part("xl/pivot.xml"));
  EXPECT_NE(std::string::npos, part("xl/book.xml").find("<calcPr fullCalcOnLoad=\"1\" calcId='1'/>"));
}

TEST_F(FillTest, WhatCannotBeFilledIsToldAndNothingIsWritten) {
  Parts parts = templateParts();
  std::string& data = parts["xl/sheets/d.xml"];
  const std::string good = data;
  data.replace(data.find("<autoFilter"), 0, "<sheetProtection sheet='1'/>");
  EXPECT_ERROR(1004, "its sheet Data is protected", open(parts));
  data = std::string(good).replace(good.find("r='5'"), 5, "r='2'");
  EXPECT_ERROR(1004, "\"2\" is no r of row", open(parts));
  data = std::string(good).replace(good.find("s='1'"), 5, "s='3'");
  EXPECT_ERROR(1004, "cell formats that it does not have", open(parts));
  data = good;
  parts["xl/book.xml"].replace(parts["xl/book.xml"].find("'Data'"), 6, "'Rows'");
  EXPECT_ERROR(9, "Data", open(parts));
  EXPECT_ERROR(1004, "has no worksheet Data", show());

  open(templateParts());
  fillRows();
  target = folder / "t.xltx";
  const std::string before = bytes();
  EXPECT_ERROR(75, "it is the template", show());
  application.call("Quit");
  EXPECT_EQ(before, bytes());
  EXPECT_EQ(1u, filesInFolder());
}

}  // namespace
}  // namespace vmgv::test
