#include "adapters/workbook/template_fill.h"

#include <algorithm>

#include "adapters/workbook/encode.h"
#include "adapters/workbook/template_table.h"
#include "adapters/workbook/xml_edit.h"
#include "adapters/workbook/xml_scanner.h"
#include "support/automation/class_table.h"
#include "support/automation/error.h"

namespace vmgv::workbook {
namespace {

using Token = XmlScanner::Token;

constexpr const char* kDataSheet = "Data";
constexpr const char* kFilterName = "_xlnm._FilterDatabase";
// The elements of a workbook's part that stand behind calcPr (ECMA-376 part 1, 18.2.27).
constexpr std::string_view kBehindCalculation[] = {"oleSize",        "customWorkbookViews", "pivotCaches",
                                                   "smartTagPr",     "smartTagTypes",       "webPublishing",
                                                   "fileRecoveryPr", "webPublishObjects",   "extLst"};

std::string absoluteName(const Area& area) {
  const auto cell = [](int row, int column) {
    return "$" + columnLetters(column) + "$" + std::to_string(row);
  };
  return cell(area.top, area.left) + ":" + cell(area.bottom, area.right);
}

// Visits the start of each element.
template <class Visit>
void eachStart(std::string_view text, Visit visit) {
  XmlScanner xml(text);
  for (Token token = xml.next(); token != Token::Finished; token = xml.next()) {
    if (token == Token::Start) visit(xml);
  }
}

// The part without the elements of that name that `isGone`.
template <class IsGone>
std::string without(const std::string& text, std::string_view name, IsGone isGone) {
  XmlEdit edit(text);
  eachStart(text, [&](XmlScanner& xml) {
    if (xml.name() != name || !isGone(xml)) return;
    const std::size_t begin = xml.begin();
    xml.skipElement();
    edit.replace(begin, xml.end(), "");
  });
  return edit.result();
}

// Cells with formulas, without the results that they had.
std::string withoutResults(const std::string& text) {
  XmlEdit edit(text);
  XmlScanner xml(text);
  std::size_t cellBegin = 0, cellEnd = 0, valueBegin = 0, valueEnd = 0;
  bool hasFormula = false;
  for (Token token = xml.next(); token != Token::Finished; token = xml.next()) {
    if (token == Token::Text) continue;
    const std::string_view name = xml.name();
    if (token == Token::Start && name == "c") {
      cellBegin = xml.begin(), cellEnd = xml.end(), valueEnd = 0;
      hasFormula = false;
    } else if (token == Token::Start && name == "f") {
      hasFormula = true;
    } else if (token == Token::Start && name == "v") {
      valueBegin = xml.begin();
      xml.skipElement();
      valueEnd = xml.end();
    } else if (token == Token::End && name == "c" && hasFormula && valueEnd > 0) {
      const std::string_view tag = std::string_view(text).substr(cellBegin, cellEnd - cellBegin);
      edit.replace(cellBegin, cellEnd, withAttribute(tag, "t", {}));
      edit.replace(valueBegin, valueEnd, "");
      hasFormula = false;
    }
  }
  return edit.result();
}

}  // namespace

TemplateFill::TemplateFill(const std::string& path) : book_(path), data_(book_.sheet(kDataSheet)) {
  if (data_ && !data_->isWorksheet) data_ = nullptr;
  for (const Relationship& relationship : book_.relationshipsOf(book_.workbookPart())) {
    if (relationship.type == "styles") stylesPart_ = relationship.target;
    if (relationship.type == "pivotCacheDefinition") pivotParts_.push_back(relationship.target);
    if (relationship.type == "vbaProject") macros_ = true;
  }
  std::string part = data_ ? data_->part : "";
  try {
    if (data_) frame_.emplace(text(part));
    part = stylesPart_;
    styles_.emplace(text(stylesPart_));
    if (data_) findTables(part);
  } catch (const XmlError& error) {
    book_.package().refuse("its part " + part + " is damaged: " + error.what());
  }
  if (frame_ && frame_->highestFormat() >= styles_->count()) {
    book_.package().refuse("its sheet Data names cell formats that it does not have");
  }
  if (frame_ && frame_->isProtected()) book_.package().refuse("its sheet Data is protected");
}

StyleTable TemplateFill::styles() const { return StyleTable(styles_->bases()); }

// As it is now: an earlier change stays.
std::string TemplateFill::text(const std::string& part) const {
  if (const auto found = changed_.find(lowerCase(part)); found != changed_.end()) return found->second;
  const PackagePart* const found = book_.package().find(part);
  if (!found) book_.package().refuse("it has no part " + part);
  return book_.package().text(*found);
}

void TemplateFill::edit(const std::string& part, const Edit& change) {
  const std::string before = text(part);
  try {
    std::string after = change(before);
    if (after != before) changed_[lowerCase(part)] = std::move(after);
  } catch (const XmlError& error) {
    book_.package().refuse("its part " + part + " is damaged: " + error.what());
  }
}

// `part` is the one being read.
void TemplateFill::findTables(std::string& part) {
  const auto& parts = frame_->tableParts();
  for (const Relationship& relationship : book_.relationshipsOf(data_->part)) {
    if (std::find(parts.begin(), parts.end(), relationship.id) == parts.end()) continue;
    part = relationship.target;
    const TableFacts facts = tableFacts(text(part));
    tables_.push_back({relationship.id, relationship.target, facts.name, facts.area});
  }
}

void TemplateFill::refresh(std::size_t pivotCache) {
  edit(pivotParts_[pivotCache], [](const std::string& xml) {
    XmlEdit edit(xml);
    eachStart(xml, [&](const XmlScanner& start) {
      if (start.depth() == 1)
        edit.replace(start.begin(), start.end(), withAttribute(start.token(), "refreshOnLoad", "1"));
    });
    return edit.result();
  });
}

// The relationships of those that cannot live on: what was written runs into them, or cannot be a table.
std::vector<std::string> TemplateFill::placeTables(const SheetStream& sheet) {
  std::vector<std::string> givenUp;
  const Area written = sheet.written();
  for (const Table& table : tables_) {
    if (!meet(table.area, written)) continue;
    const bool fits = table.area.top == 1 && table.area.left == 1 && !sheet.hasMerges() &&
                      written.bottom > 1 && canHeadTable(sheet.headers());
    const bool first = &table == tables_.data();  // no two over the same cells
    if (fits && first) {
      edit(table.part, [&](const std::string& xml) { return tableOver(xml, written, sheet.headers()); });
    } else {
      givenUp.push_back(table.relationship);
      dropPart(table.part, data_->part);
    }
  }
  return givenUp;
}

void TemplateFill::dropPart(const std::string& part, const std::string& from) {
  const std::string name = lowerCase(part);
  dropped_.insert(name);
  edit(relationshipPart(from), [&](const std::string& xml) {
    return without(xml, "Relationship", [&](const XmlScanner& start) {
      return lowerCase(resolvePart(from, start.attribute("Target").value_or(""))) == name;
    });
  });
  edit("[Content_Types].xml", [&](const std::string& xml) {
    return without(xml, "Override", [&](const XmlScanner& start) {
      return lowerCase(start.attribute("PartName").value_or("")) == "/" + name;
    });
  });
}

// A pivot table over the first row takes the rows that there are now; whole columns and names have them
// anyway.
void TemplateFill::placePivots(const Area& written, const std::set<std::string>& namesGivenUp) {
  for (const std::string& part : pivotParts_) {
    edit(part, [&](const std::string& xml) {
      XmlEdit edit(xml);
      eachStart(xml, [&](const XmlScanner& start) {
        if (start.name() != "worksheetSource" || start.attribute("id")) return;
        const auto name = start.attribute("name");
        auto area = areaNamed(start.attribute("ref").value_or(""));
        std::string tag(start.token());
        if (name && namesGivenUp.contains(lowerCase(*name))) {
          area = written;
          tag = withAttribute(withAttribute(tag, "name", {}), "sheet", data_->name);
        } else if (name || lowerCase(start.attribute("sheet").value_or("")) != lowerCase(kDataSheet)) {
          return;
        }
        if (!area || area->top != 1 || area->bottom == kMaxRows) return;
        area->bottom = std::max(written.bottom, 2);
        area->right =
            std::max(area->left, std::min(area->right, written.right));  // an empty header would be an error
        edit.replace(start.begin(), start.end(), withAttribute(tag, "ref", areaName(*area)));
      });
      return edit.result();
    });
  }
}

// It lists the cells to compute, among them those of the old rows. Programs make it anew.
void TemplateFill::dropCalculationChain() {
  for (const Relationship& relationship : book_.relationshipsOf(book_.workbookPart())) {
    if (relationship.type == "calcChain") dropPart(relationship.target, book_.workbookPart());
  }
}

// Not every program computes at opening what has a result already.
void TemplateFill::dropResults() {
  for (const TemplateSheet& sheet : book_.sheets()) {
    if (sheet.isWorksheet && &sheet != data_) edit(sheet.part, withoutResults);
  }
}

std::string TemplateFill::workbookXml(const std::string& text, const Area& written) const {
  const auto& sheets = book_.sheets();
  const std::string place =
      std::to_string(std::find_if(sheets.begin(), sheets.end(),
                                  [&](const TemplateSheet& sheet) { return &sheet == data_; }) -
                     sheets.begin());
  XmlEdit edit(text);
  XmlScanner xml(text);
  bool calculates = false;
  const std::string calculation = "<calcPr" + std::string(kSheetNamespace) + " fullCalcOnLoad=\"1\"/>";
  for (Token token = xml.next(); token != Token::Finished; token = xml.next()) {
    const bool isEnd = token == Token::End && xml.depth() == 0;
    const bool isBehind = token == Token::Start && xml.depth() == 2 &&
                          std::find(std::begin(kBehindCalculation), std::end(kBehindCalculation),
                                    xml.name()) != std::end(kBehindCalculation);
    if (!calculates && (isEnd || isBehind)) {
      edit.replace(xml.begin(), xml.begin(), calculation);
      calculates = true;
    }
    if (token != Token::Start) continue;
    if (xml.name() == "calcPr") {
      edit.replace(xml.begin(), xml.end(), withAttribute(xml.token(), "fullCalcOnLoad", "1"));
      calculates = true;
    } else if (xml.name() == "definedName" && frame_->hasFilter() && xml.attribute("name") == kFilterName &&
               xml.attribute("localSheetId") == place) {
      const std::size_t begin = xml.end();
      if (xml.next() == Token::Text)
        edit.replace(begin, xml.end(), "'" + data_->name + "'!" + absoluteName(written));
    }
  }
  return edit.result();
}

std::string TemplateFill::contentTypes(const std::string& text) const {
  XmlEdit edit(text);
  eachStart(text, [&](const XmlScanner& xml) {
    std::string type = xml.attribute("ContentType").value_or("");
    for (const auto& [from, to] :
         {std::pair<std::string_view, const char*>{"template.main+xml", "sheet.main+xml"},
          {"template.macroEnabled.main+xml", "sheet.macroEnabled.main+xml"}}) {
      if (!type.ends_with(from)) continue;
      type.replace(type.size() - from.size(), from.size(), to);
      edit.replace(xml.begin(), xml.end(), withAttribute(xml.token(), "ContentType", type));
      return;
    }
  });
  return edit.result();
}

void TemplateFill::write(Package& package, SheetStream& sheet, const StyleTable& styles) {
  sheet.completeRow();
  const Area written = sheet.written();
  const std::vector<std::string> tablesGivenUp = placeTables(sheet);
  std::set<std::string> names;
  for (const Table& table : tables_) {
    const bool isGone =
        std::find(tablesGivenUp.begin(), tablesGivenUp.end(), table.relationship) != tablesGivenUp.end();
    if (isGone) names.insert(lowerCase(table.name));
  }
  placePivots(written, names);
  dropCalculationChain();
  dropResults();
  edit(book_.workbookPart(), [&](const std::string& xml) { return workbookXml(xml, written); });
  edit("[Content_Types].xml", [&](const std::string& xml) { return contentTypes(xml); });
  sheet.finish(tablesGivenUp);
  edit(stylesPart_, [&](const std::string&) { return styles_->with(styles); });

  for (const PackagePart& part : book_.package().parts()) {
    const std::string name = lowerCase(part.name);
    const auto changed = changed_.find(name);
    if (dropped_.contains(name)) continue;
    if (name == lowerCase(data_->part)) {
      sheet.writeTo(package, part.name);
    } else if (changed != changed_.end()) {
      package.add(part.name, changed->second);
    } else {
      package.copy(book_.package(), part);
    }
  }
}

}  // namespace vmgv::workbook
