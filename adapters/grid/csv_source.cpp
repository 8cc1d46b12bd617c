#include "adapters/grid/csv_source.h"

#include <algorithm>
#include <map>
#include <set>

#include "support/automation/error.h"

namespace vmgv {
namespace {

constexpr std::size_t kMostColumns = 32767;  // positions must fit an Integer

void tellMended(const CsvReader& reader, const std::string& where, Problems& problems) {
  if (reader.hadOpenQuote()) {
    problems.add(where, "a quote is opened here and never closed; the quotes of this row are read as text");
  }
  if (reader.hadTextBehindQuote()) problems.add(where, "text behind a closing quote was joined to its field");
  if (reader.hadBadBytes()) problems.add(where, "NUL or bytes that are no UTF-8 were replaced by U+FFFD");
}

std::string count(std::size_t number, const char* thing) {
  return std::to_string(number) + ' ' + thing + (number == 1 ? "" : "s");
}

}  // namespace

CsvSource::CsvSource(const std::string& path) : path_(path), reader_(path) {
  Problems toldByRead;
  readHeader(toldByRead);
}

void CsvSource::readHeader(Problems& problems) {
  reader_.rewind();
  do {
    if (!reader_.next()) {
      throw Error(ErrorNumber::InvalidCall, path_ + " is empty: a table starts with a row of column names");
    }
  } while (reader_.isBlank());
  if (reader_.fields().size() > kMostColumns) {
    throw Error(ErrorNumber::InvalidCall, path_ + " has " + count(reader_.fields().size(), "column") +
                                              "; a grid takes " + std::to_string(kMostColumns));
  }
  const std::string where = path_ + ':' + std::to_string(reader_.line());
  tellMended(reader_, where, problems);
  std::set<std::string, std::less<>> given(reader_.fields().begin(), reader_.fields().end()), used;
  std::map<std::string, int> copies;  // the last number that was put behind a name
  columns_.clear();
  for (const std::string_view title : reader_.fields()) {
    const std::string number = std::to_string(columns_.size() + 1);
    std::string name(title);
    if (name.empty()) name = "Column " + number;
    if (used.contains(name) || (title.empty() && given.contains(name))) {
      const std::string wanted = name + ' ';
      int& last = copies.try_emplace(wanted, 1).first->second;
      do {
        name = wanted;
        name += std::to_string(++last);
      } while (used.contains(name) || given.contains(name));
    }
    if (title != name) {
      std::string what = "column " + number;
      what += title.empty() ? " has no name" : " has the name of another";
      problems.add(where, what.append("; it is called \"").append(name).append("\""));
    }
    used.insert(name);
    columns_.push_back({std::move(name)});
  }
}

void CsvSource::read(RowSink& rows, Problems& problems) {
  readHeader(problems);
  const std::size_t expected = columns_.size();
  while (reader_.next()) {
    if (reader_.isBlank() && expected > 1) continue;
    const auto& fields = reader_.fields();
    if (fields.size() != expected || reader_.hadOpenQuote() || reader_.hadTextBehindQuote() ||
        reader_.hadBadBytes()) {
      const std::string where = path_ + ':' + std::to_string(reader_.line());
      tellMended(reader_, where, problems);
      if (fields.size() != expected) {
        problems.add(where, count(fields.size(), "field") + " instead of " + std::to_string(expected) +
                                (fields.size() < expected ? "; the missing ones are empty"
                                                          : "; the ones too many were dropped"));
      }
    }
    for (std::size_t i = 0; i < std::min(fields.size(), expected); ++i) rows.field(fields[i]);
    rows.endRow();
  }
}

}  // namespace vmgv
