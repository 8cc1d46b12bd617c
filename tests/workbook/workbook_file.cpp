// Reads a workbook by minizip's unzip, which checks every part's CRC, and pugixml.
#include "tests/workbook/workbook_file.h"

#include <minizip/unzip.h>

#include <memory>
#include <pugixml.hpp>
#include <stdexcept>

#include "adapters/workbook/area.h"

namespace vmgv::test {
namespace {

void require(bool holds, const std::string& what) {
  if (!holds) throw std::runtime_error(what);
}

std::map<std::string, std::string> readParts(const std::string& path) {
  const std::unique_ptr<void, int (*)(unzFile)> zip(unzOpen64(path.c_str()), unzClose);
  require(zip != nullptr, path + " is no zip file");
  std::map<std::string, std::string> parts;
  for (int result = unzGoToFirstFile(zip.get()); result == UNZ_OK; result = unzGoToNextFile(zip.get())) {
    char name[256];
    unz_file_info64 info;
    require(unzGetCurrentFileInfo64(zip.get(), &info, name, sizeof name, nullptr, 0, nullptr, 0) == UNZ_OK &&
                unzOpenCurrentFile(zip.get()) == UNZ_OK,
            "unreadable entry");
    std::string text(info.uncompressed_size, '\0');
    const int count = unzReadCurrentFile(zip.get(), text.data(), static_cast<unsigned>(text.size()));
    require(count == static_cast<int>(text.size()) && unzCloseCurrentFile(zip.get()) == UNZ_OK,
            std::string(name) + " has another size or CRC than stated");
    parts[name] = text;
  }
  return parts;
}

pugi::xml_document parse(const std::string& xml, const std::string& part) {
  pugi::xml_document document;
  require(document.load_buffer(xml.data(), xml.size(), pugi::parse_default | pugi::parse_ws_pcdata),
          part + " is not well-formed");
  return document;
}

}  // namespace

WorkbookFile::WorkbookFile(const std::string& path) {
  const auto parts = readParts(path);
  for (const auto& [name, xml] : parts) parse(xml, name);

  const auto workbook = parse(parts.at("xl/workbook.xml"), "workbook");
  sheetName = workbook.select_node("workbook/sheets/sheet/@name").attribute().value();

  const auto styles = parse(parts.at("xl/styles.xml"), "styles");
  std::map<int, std::string> codes{
      {0, "General"}, {14, "date"}, {21, "time"}, {22, "date and time"}, {49, "@"}};
  for (const auto format : styles.child("styleSheet").child("numFmts")) {
    codes[format.attribute("numFmtId").as_int()] = format.attribute("formatCode").value();
  }
  std::vector<pugi::xml_node> formats;
  for (const auto format : styles.child("styleSheet").child("cellXfs")) formats.push_back(format);

  const auto document = parse(parts.at("xl/worksheets/sheet1.xml"), "sheet");
  const auto sheet = document.child("worksheet");
  for (const auto column : sheet.child("cols")) {
    widths[column.attribute("min").as_int()] = column.attribute("width").as_double();
  }
  for (const auto row : sheet.child("sheetData")) {
    if (row.attribute("ht")) heights[row.attribute("r").as_int()] = row.attribute("ht").as_double();
    int column = 0;
    for (const auto c : row) {
      const char* const reference = c.attribute("r").value();  // without one it follows the cell before
      column = *reference ? workbook::areaNamed(reference)->left : column + 1;
      const auto inlined = c.child("is").child("t");
      const auto format = formats.at(c.attribute("s").as_uint());
      FileCell cell;
      cell.type = c.attribute("t").value();
      cell.text = inlined ? inlined.text().get() : c.child("v").text().get();
      cell.format = codes.at(format.attribute("numFmtId").as_int());
      cell.wraps = format.child("alignment").attribute("wrapText").as_bool();
      cell.keepsBlanks = std::string(inlined.attribute("xml:space").value()) == "preserve";
      order.push_back(workbook::cellName(row.attribute("r").as_int(), column));
      cells[order.back()] = cell;
    }
  }
  for (const auto merge : sheet.child("mergeCells")) merges.push_back(merge.attribute("ref").value());
}

}  // namespace vmgv::test
