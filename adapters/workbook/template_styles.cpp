#include "adapters/workbook/template_styles.h"

#include <algorithm>

#include "adapters/workbook/encode.h"
#include "adapters/workbook/xml_edit.h"
#include "adapters/workbook/xml_scanner.h"

namespace vmgv::workbook {
namespace {

using Token = XmlScanner::Token;

int numberOf(const XmlScanner& xml, std::string_view attribute) {
  const std::string text = xml.attribute(attribute).value_or("");
  if (text.empty() || text.size() > 9 || text.find_first_not_of("0123456789") != std::string::npos) return 0;
  return std::stoi(text);
}

}  // namespace

TemplateStyles::TemplateStyles(std::string xml) : xml_(std::move(xml)) {
  XmlScanner scanner(xml_);
  bool inFormats = false, inFormat = false;
  for (Token token = scanner.next(); token != Token::Finished; token = scanner.next()) {
    if (token == Token::Text) continue;
    const bool starts = token == Token::Start;
    const std::string_view name = scanner.name();
    if (starts && scanner.depth() == 1) rootEnd_ = scanner.end();
    if (name == "numFmts") {
      if (starts) codesBegin_ = scanner.begin(), codesEnd_ = scanner.end();
      codesLast_ = scanner.begin();
    } else if (starts && name == "numFmt" && codesLast_ == codesBegin_ && codesBegin_ > 0) {
      codes_.emplace_back(numberOf(scanner, "numFmtId"), scanner.attribute("formatCode").value_or(""));
    } else if (name == "cellXfs") {
      if (starts) formatsBegin_ = scanner.begin(), formatsEnd_ = scanner.end();
      formatsLast_ = scanner.begin();
      inFormats = starts;
    } else if (inFormats && name == "xf") {
      inFormat = starts;
      if (starts) {
        formats_.push_back({scanner.begin(), scanner.end(), numberOf(scanner, "numFmtId"), false});
      } else if (scanner.end() > scanner.begin()) {
        formats_.back().end = scanner.end();
      }
    } else if (starts && inFormat && name == "alignment") {
      formats_.back().wraps = isTrue(scanner.attribute("wrapText"));
    }
  }
  if (formats_.empty()) throw XmlError("it has no cell formats");
}

std::string TemplateStyles::codeOf(int numberFormat) const {
  for (const auto& [number, code] : codes_) {
    if (number == numberFormat) return code;
  }
  return StyleTable::builtInCode(numberFormat);
}

std::vector<BaseStyle> TemplateStyles::bases() const {
  std::vector<BaseStyle> bases;
  for (const Format& format : formats_) bases.push_back({codeOf(format.numberFormat), format.wraps});
  return bases;
}

// The base's element with another number format and with wrapping, all else as it was.
std::string TemplateStyles::derived(Style style, const StyleTable& styles, int firstFree) const {
  const Format& base = formats_[StyleTable::baseOf(style)];
  const std::string_view element = std::string_view(xml_).substr(base.begin, base.end - base.begin);
  const std::size_t tagEnd = element.find('>') + 1;
  std::string tag(element.substr(0, tagEnd)), inside(element.substr(tagEnd));
  if (StyleTable::changesFormat(style)) {
    tag = withAttribute(tag, "numFmtId", std::to_string(styles.numberFormatId(style, firstFree)));
    tag = withAttribute(tag, "applyNumberFormat", "1");
  }
  if (!StyleTable::changesWrap(style)) return tag + inside;
  tag = withAttribute(tag, "applyAlignment", "1");
  if (const std::size_t at = inside.find("alignment"); at != std::string::npos) {
    const std::size_t begin = inside.rfind('<', at), end = inside.find('>', at) + 1;
    return tag + inside.replace(begin, end - begin,
                                withAttribute(inside.substr(begin, end - begin), "wrapText", "1"));
  }
  const std::string alignment = "<" + besideName(tag, "alignment") + " wrapText=\"1\"/>";
  if (!tag.ends_with("/>")) return tag + alignment + inside;
  const std::string name = besideName(tag, "xf");
  return tag.substr(0, tag.size() - 2) + ">" + alignment + "</" + name + ">";
}

std::string TemplateStyles::with(const StyleTable& styles) const {
  if (styles.derived().empty()) return xml_;
  int firstFree = 164;  // the numbers before are the format's own
  for (const auto& code : codes_) firstFree = std::max(firstFree, code.first + 1);
  const auto tag = [this](std::size_t begin, std::size_t end) {
    return std::string_view(xml_).substr(begin, end - begin);
  };
  const std::string_view formatsTag = tag(formatsBegin_, formatsEnd_);
  std::string codes, formats;
  const std::vector<std::string> added = styles.customCodes();
  for (std::size_t i = 0; i < added.size(); ++i) {
    codes += "<" + besideName(formatsTag, "numFmt") + " numFmtId=\"" +
             std::to_string(firstFree + static_cast<int>(i)) + "\" formatCode=\"" + attributeText(added[i]) +
             "\"/>";
  }
  for (const Style style : styles.derived()) formats += derived(style, styles, firstFree);

  XmlEdit edit(xml_);
  if (!codes.empty()) {
    const std::string name = besideName(formatsTag, "numFmts");
    const std::string count = std::to_string(codes_.size() + added.size());
    if (codesEnd_ > 0 && !tag(codesBegin_, codesEnd_).ends_with("/>")) {
      edit.replace(codesBegin_, codesEnd_, withAttribute(tag(codesBegin_, codesEnd_), "count", count));
      edit.replace(codesLast_, codesLast_, codes);
    } else {
      const std::size_t begin = codesEnd_ > 0 ? codesBegin_ : rootEnd_;
      edit.replace(begin, codesEnd_ > 0 ? codesEnd_ : rootEnd_,
                   "<" + name + " count=\"" + count + "\">" + codes + "</" + name + ">");
    }
  }
  const std::size_t count = formats_.size() + styles.derived().size();
  edit.replace(formatsBegin_, formatsEnd_, withAttribute(formatsTag, "count", std::to_string(count)));
  edit.replace(formatsLast_, formatsLast_, formats);
  return edit.result();
}

}  // namespace vmgv::workbook
