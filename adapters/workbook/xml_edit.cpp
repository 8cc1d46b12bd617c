#include "adapters/workbook/xml_edit.h"

#include "adapters/workbook/encode.h"
#include "adapters/workbook/xml_scanner.h"

namespace vmgv::workbook {
std::string withAttribute(std::string_view tag, std::string_view name,
                          std::optional<std::string_view> value) {
  const std::string set = value ? " " + std::string(name) + "=\"" + attributeText(*value) + '"' : "";
  std::size_t at = tag.find_first_of(" \t\r\n/>", 1);
  const std::size_t behindName = at;
  for (;;) {
    const std::size_t before = at;
    at = tag.find_first_not_of(kXmlSpace, at);
    if (at == std::string_view::npos || tag[at] == '/' || tag[at] == '>') break;
    const std::size_t equals = tag.find('=', at), quote = tag.find_first_of("\"'", equals);
    std::string_view own = tag.substr(at, tag.find_first_of(" \t\r\n=", at) - at);
    own.remove_prefix(own.find(':') + 1);
    at = tag.find(tag[quote], quote + 1) + 1;
    if (own == name) return std::string(tag.substr(0, before)) + set + std::string(tag.substr(at));
  }
  return std::string(tag.substr(0, behindName)) + set + std::string(tag.substr(behindName));
}

std::string besideName(std::string_view tag, std::string_view name) {
  const std::string_view own = tag.substr(1, tag.find_first_of(" \t\r\n/>", 1) - 1);
  return std::string(own.substr(0, own.find(':') + 1)) + std::string(name);
}

bool isTrue(const std::optional<std::string>& attribute) { return attribute == "1" || attribute == "true"; }

}  // namespace vmgv::workbook
