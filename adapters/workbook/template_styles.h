// The cell formats of a template, and the same with those that a fill derived from them.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "adapters/workbook/styles.h"

namespace vmgv::workbook {

class TemplateStyles {
 public:
  explicit TemplateStyles(std::string xml);  // of the styles part; XmlError

  std::size_t count() const noexcept { return formats_.size(); }
  // In the order of the formats' numbers.
  std::vector<BaseStyle> bases() const;
  // The part again with the formats derived from its own; the same where there are none.
  std::string with(const StyleTable& styles) const;

 private:
  struct Format {
    std::size_t begin, end;  // of its element
    int numberFormat;
    bool wraps;
  };

  std::string codeOf(int numberFormat) const;
  std::string derived(Style style, const StyleTable& styles, int firstFree) const;

  std::string xml_;
  std::vector<std::pair<int, std::string>> codes_;  // of the workbook's own number formats
  std::vector<Format> formats_;
  std::size_t rootEnd_ = 0;                      // of the root's start
  std::size_t codesBegin_ = 0, codesEnd_ = 0;    // of the list's start; 0: there is none
  std::size_t codesLast_ = 0, formatsLast_ = 0;  // where their ends begin
  std::size_t formatsBegin_ = 0, formatsEnd_ = 0;
};

}  // namespace vmgv::workbook
