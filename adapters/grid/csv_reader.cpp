#include "adapters/grid/csv_reader.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>

#include "support/automation/error.h"
#include "support/text/utf8.h"

namespace vmgv {
namespace {

constexpr std::size_t kBlock = std::size_t{1} << 18;

bool endsField(char c) { return c == ',' || c == '\n' || c == '\r'; }

const char* fieldEnd(const char* at, const char* end) {
  while (at < end && !endsField(*at)) ++at;
  return at;
}

// Takes the closing quote out, and one of every two, in place; returns what is left.
std::string_view unquote(char* begin, const char* end) {
  char* to = begin;
  bool inside = true;
  for (const char* from = begin; from < end; ++from) {
    if (inside && *from == '"') {
      if (from + 1 == end || from[1] != '"') {
        inside = false;
        continue;
      }
      ++from;
    }
    *to++ = *from;
  }
  return {begin, static_cast<std::size_t>(to - begin)};
}

}  // namespace

CsvReader::CsvReader(const std::string& path)
    : path_(path), file_(std::filesystem::path(std::u8string(path.begin(), path.end())), std::ios::binary) {
  if (!file_) throw Error(ErrorNumber::PathAccess, path + " cannot be read: " + std::strerror(errno));
  rewind();
}

void CsvReader::rewind() {
  file_.clear();
  file_.seekg(0);
  begin_ = end_ = 0;
  last_ = false;
  nextLine_ = 1;
  fill();
  const std::string_view start(buffer_.data(), end_);
  if (start.starts_with("\xFF\xFE") || start.starts_with("\xFE\xFF")) {
    throw Error(ErrorNumber::PathAccess, path_ + " is UTF-16 text; save it as UTF-8");
  }
  if (start.starts_with("\xEF\xBB\xBF")) begin_ = 3;
}

// Reads on behind what is still to be read, in a buffer twice as large where that already filled it.
void CsvReader::fill() {
  std::copy(buffer_.begin() + static_cast<std::ptrdiff_t>(begin_),
            buffer_.begin() + static_cast<std::ptrdiff_t>(end_), buffer_.begin());
  end_ -= begin_;
  begin_ = 0;
  if (buffer_.size() - end_ < kBlock) buffer_.resize(std::max(2 * kBlock, 2 * buffer_.size()));
  file_.read(buffer_.data() + end_, static_cast<std::streamsize>(buffer_.size() - end_));
  end_ += static_cast<std::size_t>(file_.gcount());
  last_ = file_.eof();
  if (!file_ && !last_) throw Error(ErrorNumber::DeviceIo, path_ + " cannot be read any further");
}

bool CsvReader::next() {
  line_ = nextLine_;
  quotesMean_ = true;
  for (;;) {
    if (begin_ == end_ && last_) return false;
    const char* begin = buffer_.data() + begin_;
    const char* after = parse(begin, buffer_.data() + end_);
    if (after) {
      begin_ = static_cast<std::size_t>(after - buffer_.data());
      finishRecord(begin, after);
      return true;
    }
    if (last_) {
      quotesMean_ = false;
    } else {
      fill();
    }
  }
}

// Finds the fields of the record; its end, or null where it goes on behind `end` or a quote stays open.
const char* CsvReader::parse(const char* at, const char* end) {
  raw_.clear();
  nextLine_ = line_;
  openQuote_ = !quotesMean_;
  textBehindQuote_ = false;
  for (;;) {
    if (quotesMean_ && at < end && *at == '"') {
      if (!parseQuoted(at, end)) return nullptr;
    } else {
      const char* begin = at;
      at = fieldEnd(at, end);
      raw_.push_back({begin, at, false, false});
    }
    if (at == end) {
      if (!last_) return nullptr;
      ++nextLine_;
      return end;
    }
    if (*at != ',') return recordEnd(at, end);
    ++at;
  }
}

// The quoted field at `at`, which is then behind it; false where its end is not in sight.
bool CsvReader::parseQuoted(const char*& at, const char* end) {
  const char* begin = at + 1;
  bool changed = false;
  const char* quote = begin;
  for (;;) {
    quote = static_cast<const char*>(std::memchr(quote, '"', static_cast<std::size_t>(end - quote)));
    if (!quote || (quote + 1 == end && !last_)) return false;
    if (quote + 1 == end || quote[1] != '"') break;
    changed = true;
    quote += 2;
  }
  at = quote + 1;
  if (at < end && !endsField(*at)) {
    textBehindQuote_ = changed = true;
    at = fieldEnd(at, end);
  }
  nextLine_ += static_cast<std::size_t>(std::count(begin, quote, '\n'));
  raw_.push_back({begin, changed ? at : quote, true, changed});
  return true;
}

// Behind the line break at `at`; null where it may go on behind `end`.
const char* CsvReader::recordEnd(const char* at, const char* end) {
  if (*at == '\r') {
    if (at + 1 == end && !last_) return nullptr;
    if (at + 1 < end && at[1] == '\n') ++at;
  }
  ++nextLine_;
  return at + 1;
}

void CsvReader::finishRecord(const char* begin, const char* end) {
  const bool plain = isPlainAscii({begin, static_cast<std::size_t>(end - begin)});
  badBytes_ = false;
  mended_.clear();
  fields_.clear();
  for (const RawField& raw : raw_) {
    std::string_view field(raw.begin, static_cast<std::size_t>(raw.end - raw.begin));
    if (raw.changed) field = unquote(buffer_.data() + (raw.begin - buffer_.data()), raw.end);
    std::string clean;
    if (!plain && !isPlainAscii(field) && !isCleanUtf8(field, clean)) {
      badBytes_ = true;
      field = mended_.emplace_back(std::move(clean));
    }
    fields_.push_back(field);
  }
}

}  // namespace vmgv
