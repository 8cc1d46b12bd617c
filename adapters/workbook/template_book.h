// An existing workbook that is to be filled: its parts and its sheets.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "adapters/workbook/package_reader.h"

namespace vmgv::workbook {

struct TemplateSheet {
  std::string name;
  std::string part;
  bool isWorksheet = false;  // or a chart, a macro or a dialog
};

struct Relationship {
  std::string id;
  std::string type;    // its last word: "worksheet"
  std::string target;  // a part's name
};

// "xl/worksheets/_rels/sheet1.xml.rels" for "xl/worksheets/sheet1.xml", "_rels/.rels" for "".
std::string relationshipPart(const std::string& part);
// A relationship's target as the part that it names, seen from the part that refers to it.
std::string resolvePart(const std::string& from, std::string_view target);

// One that was saved as .xlsx, .xltx, .xlsm or .xltm, or as .xls or .xlt, whatever its name says.
class TemplateBook {
 public:
  // As PackageReader and ConvertedWorkbook throw; Error 1004 also where the parts do not make a workbook.
  explicit TemplateBook(const std::string& path);

  const PackageReader& package() const noexcept { return package_; }
  const std::string& workbookPart() const noexcept { return workbookPart_; }
  const std::vector<TemplateSheet>& sheets() const noexcept { return sheets_; }
  const TemplateSheet* sheet(std::string_view name) const;  // in any case; null: none

  // What a part refers to within the workbook; nothing where it has no relationships.
  std::vector<Relationship> relationshipsOf(const std::string& part) const;

 private:
  std::string requiredText(const std::string& part) const;
  std::string findWorkbook() const;
  void requireKnownKind() const;
  void readSheets();

  PackageReader package_;
  std::string workbookPart_;
  std::vector<TemplateSheet> sheets_;
};

}  // namespace vmgv::workbook
