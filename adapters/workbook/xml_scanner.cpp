#include "adapters/workbook/xml_scanner.h"

#include <algorithm>
#include <charconv>

#include "support/text/utf8.h"

namespace vmgv::workbook {
namespace {

constexpr std::size_t kMostDepth = 200;

bool isNameCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '-' ||
         c == '.' || c == ':' || static_cast<unsigned char>(c) >= 0x80;
}

std::string_view withoutPrefix(std::string_view name) { return name.substr(name.find(':') + 1); }

bool isXmlCharacter(char32_t c) {
  return c == '\t' || c == '\n' || c == '\r' || (c >= 0x20 && c < 0xD800) || (c >= 0xE000 && c < 0xFFFE) ||
         (c >= 0x10000 && c < 0x110000);
}

void appendUtf8(char32_t c, std::string& text) {
  const auto put = [&text](char32_t byte) { text += static_cast<char>(byte); };
  if (c < 0x80) return put(c);
  if (c < 0x800) {
    put(0xC0 | c >> 6);
  } else {
    if (c < 0x10000) {
      put(0xE0 | c >> 12);
    } else {
      put(0xF0 | c >> 18);
      put(0x80 | (c >> 12 & 0x3F));
    }
    put(0x80 | (c >> 6 & 0x3F));
  }
  put(0x80 | (c & 0x3F));
}

}  // namespace

XmlScanner::XmlScanner(std::string_view text) : text_(text) {
  if (text_.starts_with("\xEF\xBB\xBF")) at_ = 3;
  if (!isUtf8(text_)) fail("it is not in UTF-8");
}

void XmlScanner::fail(const std::string& what) const {
  throw XmlError(what + " (at byte " + std::to_string(at_ + 1) + ")");
}

XmlScanner::Token XmlScanner::next() {
  if (endsAtOnce_) {
    endsAtOnce_ = false;
    begin_ = end_;
    open_.pop_back();
    return Token::End;
  }
  for (;;) {
    begin_ = at_;
    const std::string_view rest = text_.substr(at_);
    if (rest.empty()) {
      if (!open_.empty() || !hadRoot_) fail("it ends too early");
      end_ = at_;
      return Token::Finished;
    }
    if (rest.starts_with("<!--")) {
      at_ += 4;
      skipPast("-->");
    } else if (rest.starts_with("<?")) {
      skipPast("?>");
    } else if (rest.starts_with("<![CDATA[") && !open_.empty()) {
      skipPast("]]>");
      end_ = at_;
      return Token::Text;
    } else if (rest.starts_with("</")) {
      return readEnd();
    } else if (rest.front() == '<') {
      return readTag();
    } else if (!open_.empty()) {
      return readText();
    } else if (kXmlSpace.find(rest.front()) != std::string_view::npos) {
      skipSpace();
    } else {
      fail("there is text outside of all elements");
    }
  }
}

void XmlScanner::skipPast(std::string_view mark) {
  const std::size_t found = text_.find(mark, at_);
  if (found == std::string_view::npos) fail("there is no " + std::string(mark));
  at_ = found + mark.size();
}

void XmlScanner::skipSpace() noexcept {
  at_ = std::min(text_.find_first_not_of(kXmlSpace, at_), text_.size());
}

std::string_view XmlScanner::readName() {
  const std::size_t start = at_;
  while (at_ < text_.size() && isNameCharacter(text_[at_])) ++at_;
  if (at_ == start) fail("a name is missing");
  return text_.substr(start, at_ - start);
}

XmlScanner::Token XmlScanner::readTag() {
  if (text_.substr(at_).starts_with("<!")) fail("it has a document type");
  if (open_.empty() && hadRoot_) fail("it has a second root element");
  if (open_.size() == kMostDepth) fail("its elements are nested too deep");
  hadRoot_ = true;
  ++at_;
  open_.push_back(readName());
  name_ = withoutPrefix(open_.back());
  readAttributes();
  endsAtOnce_ = text_[at_] == '/';
  if (endsAtOnce_) ++at_;
  if (at_ == text_.size() || text_[at_] != '>') fail("a tag does not end");
  end_ = ++at_;
  return Token::Start;
}

// Up to the "/" or ">" that ends the tag.
void XmlScanner::readAttributes() {
  attributes_.clear();
  for (;;) {
    const std::size_t before = at_;
    skipSpace();
    if (at_ == text_.size()) fail("a tag does not end");
    if (text_[at_] == '/' || text_[at_] == '>') return;
    if (at_ == before) fail("a space is missing");
    const std::string_view name = readName();
    skipSpace();
    if (at_ == text_.size() || text_[at_] != '=') fail("an attribute has no value");
    ++at_;
    skipSpace();
    const char quote = at_ < text_.size() ? text_[at_] : '\0';
    if (quote != '"' && quote != '\'') fail("an attribute's value has no quotes");
    const std::size_t start = ++at_;
    at_ = std::min(text_.find(quote, at_), text_.size());
    const std::string_view value = text_.substr(start, at_ - start);
    if (at_ == text_.size() || value.find('<') != std::string_view::npos)
      fail("an attribute's value does not end");
    ++at_;
    attributes_.push_back({name, value});
  }
}

XmlScanner::Token XmlScanner::readEnd() {
  at_ += 2;
  const std::string_view name = readName();
  skipSpace();
  if (at_ == text_.size() || text_[at_] != '>') fail("a tag does not end");
  if (open_.empty() || open_.back() != name) fail("the element that ends is not the one that began");
  open_.pop_back();
  name_ = withoutPrefix(name);
  end_ = ++at_;
  return Token::End;
}

XmlScanner::Token XmlScanner::readText() {
  end_ = at_ = std::min(text_.find('<', at_), text_.size());
  return Token::Text;
}

void XmlScanner::skipElement() {
  const std::size_t outside = depth() - 1;
  while (depth() > outside || endsAtOnce_) next();
}

std::optional<std::string> XmlScanner::attribute(std::string_view name) const {
  for (const Attribute& attribute : attributes_) {
    if (withoutPrefix(attribute.name) == name && !attribute.name.starts_with("xmlns"))
      return resolved(attribute.value);
  }
  return {};
}

std::string XmlScanner::resolved(std::string_view raw) const {
  constexpr std::string_view kOpen = "<![CDATA[", kClose = "]]>";
  if (raw.starts_with(kOpen))
    return std::string(raw.substr(kOpen.size(), raw.size() - kOpen.size() - kClose.size()));
  std::string text;
  for (;;) {
    const std::size_t entity = raw.find('&');
    text += raw.substr(0, entity);
    if (entity == std::string_view::npos) return text;
    const std::size_t end = raw.find(';', entity);
    if (end == std::string_view::npos) fail("an entity does not end");
    appendEntity(raw.substr(entity + 1, end - entity - 1), text);
    raw.remove_prefix(end + 1);
  }
}

void XmlScanner::appendEntity(std::string_view entity, std::string& text) const {
  constexpr struct {
    std::string_view name;
    char character;
  } kNamed[] = {{"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};
  for (const auto& named : kNamed) {
    if (named.name == entity) {
      text += named.character;
      return;
    }
  }
  const bool hexadecimal = entity.starts_with("#x");
  const std::string_view digits = entity.substr(std::min<std::size_t>(entity.size(), hexadecimal ? 2 : 1));
  std::uint32_t code = 0;
  const char* const end = digits.data() + digits.size();
  const auto read = std::from_chars(digits.data(), end, code, hexadecimal ? 16 : 10);
  if (!entity.starts_with('#') || read.ec != std::errc() || read.ptr != end || !isXmlCharacter(code)) {
    fail("there is no entity &" + std::string(entity) + ";");
  }
  appendUtf8(code, text);
}

}  // namespace vmgv::workbook
