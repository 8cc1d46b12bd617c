// Walks through the XML of a workbook's part, tag by tag, without building anything: the text stays where it
// is, and each token tells its place, so that a part can be copied but for what changes.
//
// Names are told without their prefixes. A document type, which could define entities that grow without end,
// is refused like everything that is not well-formed.
#pragma once

#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vmgv::workbook {

inline constexpr std::string_view kXmlSpace = " \t\r\n";

class XmlError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class XmlScanner {
 public:
  enum class Token : unsigned char { Start, End, Text, Finished };

  explicit XmlScanner(std::string_view text);  // UTF-8; it outlives the scanner

  // The next token; an empty element is a start and an end. XmlError says what is wrong and at which byte.
  Token next();

  std::string_view name() const noexcept { return name_; }  // of a start or an end
  std::size_t depth() const noexcept {
    return open_.size();
  }  // elements that are open, a start's own among them
  // Of a start; nothing where it has none of that name. Entities are resolved.
  std::optional<std::string> attribute(std::string_view name) const;
  std::string text() const { return resolved(token()); }  // of a text, entities resolved

  // The token as it stands. The end of an empty element is "".
  std::string_view token() const noexcept { return text_.substr(begin_, end_ - begin_); }
  std::size_t begin() const noexcept { return begin_; }
  std::size_t end() const noexcept { return end_; }

  // Goes on to the end of the element whose start has just come.
  void skipElement();

 private:
  struct Attribute {
    std::string_view name, value;
  };

  [[noreturn]] void fail(const std::string& what) const;
  void skipPast(std::string_view mark);
  Token readTag();
  Token readEnd();
  Token readText();
  void readAttributes();
  void skipSpace() noexcept;
  std::string_view readName();
  std::string resolved(std::string_view raw) const;
  void appendEntity(std::string_view entity, std::string& text) const;

  std::string_view text_;
  std::size_t at_ = 0, begin_ = 0, end_ = 0;
  std::string_view name_;
  std::vector<Attribute> attributes_;
  std::vector<std::string_view> open_;  // with their prefixes
  bool endsAtOnce_ = false;             // the start was an empty element's
  bool hadRoot_ = false;
};

}  // namespace vmgv::workbook
