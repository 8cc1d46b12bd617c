// Records of a CSV file (RFC 4180): quoted fields may hold commas, quotes written twice and line breaks.
#pragma once

#include <cstddef>
#include <deque>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace vmgv {

class CsvReader {
 public:
  // Error 75 where the file cannot be read or is UTF-16.
  explicit CsvReader(const std::string& path);

  // Reads the next record; false behind the last one. Lines end with LF, CR LF or CR.
  bool next();
  // Of the current record, valid until the next call; always well-formed UTF-8 without NUL.
  const std::vector<std::string_view>& fields() const noexcept { return fields_; }
  // An empty line, which is a record of one empty field.
  bool isBlank() const noexcept { return fields_.size() == 1 && fields_[0].empty() && !raw_[0].quoted; }
  std::size_t line() const noexcept { return line_; }  // where the record starts, from 1

  // What had to be mended in the current record.
  bool hadOpenQuote() const noexcept { return openQuote_; }  // up to the file's end: taken as a character
  bool hadTextBehindQuote() const noexcept { return textBehindQuote_; }  // taken as part of the field
  bool hadBadBytes() const noexcept { return badBytes_; }                // bad UTF-8 or NUL: now U+FFFD

  // Back to the first record.
  void rewind();

 private:
  struct RawField {
    const char* begin;
    const char* end;
    bool quoted;   // begin is behind the opening quote, end is that of the field
    bool changed;  // has quotes to take out
  };

  const char* parse(const char* at, const char* end);
  bool parseQuoted(const char*& at, const char* end);
  const char* recordEnd(const char* at, const char* end);
  void fill();
  void finishRecord(const char* begin, const char* end);

  std::string path_;
  std::ifstream file_;
  std::vector<char> buffer_;
  std::size_t begin_ = 0, end_ = 0;  // what of the buffer is still to be read
  bool last_ = false;                // nothing more in the file
  std::size_t line_ = 0, nextLine_ = 1;
  std::vector<RawField> raw_;
  std::vector<std::string_view> fields_;
  std::deque<std::string> mended_;
  bool quotesMean_ = true, openQuote_ = false, textBehindQuote_ = false, badBytes_ = false;
};

}  // namespace vmgv
