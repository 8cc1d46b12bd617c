#include "adapters/workbook/template_table.h"

#include <algorithm>
#include <vector>

#include "adapters/workbook/folded_text.h"
#include "adapters/workbook/xml_edit.h"
#include "adapters/workbook/xml_scanner.h"

namespace vmgv::workbook {
namespace {

using Token = XmlScanner::Token;

}  // namespace

TableFacts tableFacts(std::string_view xml) {
  XmlScanner scanner(xml);
  while (scanner.next() != Token::Start) {
  }
  const auto area = areaNamed(scanner.attribute("ref").value_or(""));
  if (!area) throw XmlError("the table has no place");
  return {scanner.attribute("displayName").value_or(""), *area};
}

bool canHeadTable(std::span<const std::string> headers) {
  std::vector<std::u32string> names;
  for (const std::string& header : headers) names.push_back(folded(header));
  std::sort(names.begin(), names.end());
  return !names.empty() && !names.front().empty() &&
         std::adjacent_find(names.begin(), names.end()) == names.end();
}

std::string tableOver(std::string_view xml, const Area& written, std::span<const std::string> headers) {
  XmlScanner scanner(xml);
  XmlEdit edit(xml);
  const std::string area = areaName(written);
  std::size_t columns = 0;
  int lastId = 0;
  std::string columnTag;
  const auto count = [&headers] { return std::to_string(headers.size()); };
  for (Token token = scanner.next(); token != Token::Finished; token = scanner.next()) {
    const std::size_t begin = scanner.begin(), end = scanner.end();
    const std::string_view name = scanner.name();
    if (token == Token::End && name == "tableColumns") {
      std::string added;
      for (; columns < headers.size(); ++columns) {
        const std::string tag = "<" + columnTag + " id=\"" + std::to_string(++lastId) + "\"/>";
        added += withAttribute(tag, "name", headers[columns]);
      }
      edit.replace(begin, begin, added);
    }
    if (token != Token::Start) continue;
    if (scanner.depth() == 1) {
      std::string tag = withAttribute(scanner.token(), "ref", area);
      for (const char* gone : {"totalsRowCount", "totalsRowShown"}) tag = withAttribute(tag, gone, {});
      edit.replace(begin, end, tag);
    } else if (name == "autoFilter") {
      const std::string tag = withAttribute(scanner.token(), "ref", area);
      scanner.skipElement();
      edit.replace(begin, scanner.end(), tag.ends_with("/>") ? tag : tag.substr(0, tag.size() - 1) + "/>");
    } else if (name == "sortState") {
      scanner.skipElement();
      edit.replace(begin, scanner.end(), "");
    } else if (name == "tableColumns") {
      edit.replace(begin, end, withAttribute(scanner.token(), "count", count()));
    } else if (name == "tableColumn") {
      columnTag = besideName(scanner.token(), "tableColumn");
      lastId = std::max(lastId, std::atoi(scanner.attribute("id").value_or("0").c_str()));
      if (columns < headers.size()) {
        edit.replace(begin, end, withAttribute(scanner.token(), "name", headers[columns++]));
      } else {
        scanner.skipElement();
        edit.replace(begin, scanner.end(), "");
      }
    }
  }
  return edit.result();
}

}  // namespace vmgv::workbook
