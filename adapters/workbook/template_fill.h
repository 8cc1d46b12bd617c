// A template on its way to a filled workbook: the rows go into its sheet "Data", all other parts stay as they
// are, to the byte where nothing in them depends on the rows.
//
// What does depend: pivot tables and tables over the rows take their new place, saved results of formulas go
// so that every program computes them anew, and a template becomes a workbook. The template's own file is
// only read.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "adapters/workbook/sheet_stream.h"
#include "adapters/workbook/template_book.h"
#include "adapters/workbook/template_styles.h"

namespace vmgv::workbook {

class TemplateFill {
 public:
  // As TemplateBook throws.
  explicit TemplateFill(const std::string& path);

  const TemplateBook& book() const noexcept { return book_; }
  bool hasMacros() const noexcept { return macros_; }
  bool hasSheet() const noexcept { return frame_.has_value(); }
  const std::string& sheetName() const { return data_->name; }
  const SheetFrame& frame() const { return *frame_; }
  StyleTable styles() const;

  std::size_t pivotCaches() const noexcept { return pivotParts_.size(); }
  void refresh(std::size_t pivotCache);  // from 0: computed anew when the workbook is opened

  // The whole workbook, with the sheet's rows, which are complete.
  void write(Package& package, SheetStream& sheet, const StyleTable& styles);

 private:
  struct Table {
    std::string relationship, part, name;
    Area area;
  };
  using Edit = std::function<std::string(const std::string& xml)>;

  void edit(const std::string& part, const Edit& change);
  std::string text(const std::string& part) const;
  void findTables(std::string& part);
  std::vector<std::string> placeTables(const SheetStream& sheet);
  void placePivots(const Area& written, const std::set<std::string>& namesGivenUp);
  void dropCalculationChain();
  void dropPart(const std::string& part, const std::string& from);
  void dropResults();
  std::string workbookXml(const std::string& text, const Area& written) const;
  std::string contentTypes(const std::string& text) const;

  TemplateBook book_;
  const TemplateSheet* data_ = nullptr;
  std::optional<SheetFrame> frame_;
  std::optional<TemplateStyles> styles_;
  std::string stylesPart_;
  std::vector<std::string> pivotParts_;
  std::vector<Table> tables_;
  bool macros_ = false;
  std::map<std::string, std::string> changed_;  // parts by name
  std::set<std::string> dropped_;
};

}  // namespace vmgv::workbook
