// Changes to XML that leave everything else as it stands, to the byte.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vmgv::workbook {

// Replacements in a text, given from its start to its end.
class XmlEdit {
 public:
  explicit XmlEdit(std::string_view text) : text_(text) {}  // it outlives the edit

  void replace(std::size_t begin, std::size_t end, std::string_view by) {
    result_.append(text_.substr(kept_, begin - kept_)).append(by);
    kept_ = end;
  }
  std::string result() const { return result_ + std::string(text_.substr(kept_)); }

 private:
  std::string_view text_;
  std::string result_;
  std::size_t kept_ = 0;  // where the text that follows the last replacement begins
};

// A start tag with an attribute set, or removed where there is no value. Attributes are known by their names
// without prefixes; a new one has none.
std::string withAttribute(std::string_view tag, std::string_view name, std::optional<std::string_view> value);

// The same name as the tag's with its prefix, for another element beside it: "x:col" for "<x:cols>" and
// "col".
std::string besideName(std::string_view tag, std::string_view name);

bool isTrue(const std::optional<std::string>& attribute);  // "1" or "true"

}  // namespace vmgv::workbook
