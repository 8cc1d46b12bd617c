#include "adapters/workbook/template_book.h"

#include <algorithm>

#include "adapters/workbook/old_workbook.h"
#include "adapters/workbook/xml_scanner.h"
#include "support/automation/class_table.h"

namespace vmgv::workbook {
namespace {

using Token = XmlScanner::Token;

PackageReader packageOf(const std::string& path) {
  if (!isOldWorkbook(path)) return PackageReader(path);
  const ConvertedWorkbook converted(path);
  return {path, converted.path()};
}

std::string lastWord(const std::string& uri) { return uri.substr(uri.rfind('/') + 1); }

// Runs a walk through a part; what is not well-formed there is said of the part.
template <class Walk>
void scan(const PackageReader& package, const std::string& part, const std::string& text, Walk walk) {
  try {
    XmlScanner xml(text);
    for (Token token = xml.next(); token != Token::Finished; token = xml.next()) walk(xml, token);
  } catch (const XmlError& error) {
    package.refuse("its part " + part + " is damaged: " + error.what());
  }
}

}  // namespace

std::string relationshipPart(const std::string& part) {
  const std::size_t name = part.rfind('/') + 1;
  return part.substr(0, name) + "_rels/" + part.substr(name) + ".rels";
}

std::string resolvePart(const std::string& from, std::string_view target) {
  std::string path(target.starts_with('/') ? "" : from.substr(0, from.rfind('/') + 1));
  path += target;
  std::vector<std::string> steps;
  for (std::size_t start = 0; start <= path.size();) {
    const std::size_t end = std::min(path.find('/', start), path.size());
    const std::string step = path.substr(start, end - start);
    if (step == ".." && !steps.empty()) steps.pop_back();
    if (!step.empty() && step != "." && step != "..") steps.push_back(step);
    start = end + 1;
  }
  std::string part;
  for (const std::string& step : steps) part += (part.empty() ? "" : "/") + step;
  return part;
}

TemplateBook::TemplateBook(const std::string& path)
    : package_(packageOf(path)), workbookPart_(findWorkbook()) {
  requireKnownKind();
  readSheets();
  // Damage is told now, not when half of the rows are written.
  for (const PackagePart& part : package_.parts()) {
    if (part.name.ends_with(".xml") || part.name.ends_with(".rels")) {
      scan(package_, part.name, package_.text(part), [](const XmlScanner&, Token) {});
    } else {
      package_.read(part, [](std::string_view) {});
    }
  }
}

std::string TemplateBook::requiredText(const std::string& part) const {
  const PackagePart* const found = package_.find(part);
  if (!found) package_.refuse("it has no part " + part);
  return package_.text(*found);
}

std::vector<Relationship> TemplateBook::relationshipsOf(const std::string& part) const {
  std::vector<Relationship> all;
  const std::string name = relationshipPart(part);
  const PackagePart* const found = package_.find(name);
  if (!found) return all;
  scan(package_, name, package_.text(*found), [&](const XmlScanner& xml, Token token) {
    if (token != Token::Start || xml.name() != "Relationship") return;
    if (xml.attribute("TargetMode") == "External") return;
    all.push_back({xml.attribute("Id").value_or(""), lastWord(xml.attribute("Type").value_or("")),
                   resolvePart(part, xml.attribute("Target").value_or(""))});
  });
  return all;
}

std::string TemplateBook::findWorkbook() const {
  for (const Relationship& relationship : relationshipsOf("")) {
    if (relationship.type == "officeDocument") return relationship.target;
  }
  package_.refuse("it is no workbook");
}

// The main part of a text document or of a binary workbook is called the same.
void TemplateBook::requireKnownKind() const {
  std::string kind;
  scan(package_, "[Content_Types].xml", requiredText("[Content_Types].xml"),
       [&](const XmlScanner& xml, Token token) {
         if (token != Token::Start || xml.name() != "Override") return;
         const std::string part = xml.attribute("PartName").value_or("");
         if (lowerCase(part) == lowerCase("/" + workbookPart_))
           kind = xml.attribute("ContentType").value_or("");
       });
  if (kind.find("binary") != std::string::npos) {
    package_.refuse("it is a binary workbook; save it as .xlsx or .xltx");
  }
  const bool isSheet =
      kind.find("spreadsheetml") != std::string::npos || kind.find("ms-excel") != std::string::npos;
  if (!isSheet || !kind.ends_with("main+xml")) package_.refuse("it is no workbook");
}

void TemplateBook::readSheets() {
  const std::vector<Relationship> relationships = relationshipsOf(workbookPart_);
  scan(package_, workbookPart_, requiredText(workbookPart_), [&](const XmlScanner& xml, Token token) {
    if (token != Token::Start || xml.name() != "sheet") return;
    const std::string id = xml.attribute("id").value_or(""), name = xml.attribute("name").value_or("");
    const auto found = std::find_if(relationships.begin(), relationships.end(),
                                    [&](const Relationship& relationship) { return relationship.id == id; });
    if (found == relationships.end() || !package_.find(found->target)) {
      package_.refuse("the part of its sheet \"" + name + "\" is missing");
    }
    sheets_.push_back({name, found->target, found->type == "worksheet"});
  });
  if (sheets_.empty()) package_.refuse("it has no sheets");
}

const TemplateSheet* TemplateBook::sheet(std::string_view name) const {
  const auto found = std::find_if(sheets_.begin(), sheets_.end(), [&](const TemplateSheet& sheet) {
    return lowerCase(sheet.name) == lowerCase(name);
  });
  return found == sheets_.end() ? nullptr : &*found;
}

}  // namespace vmgv::workbook
