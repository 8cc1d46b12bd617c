// Where the grid's rows come from: a source names its columns, then hands over its rows once or twice.
//
//   class PeopleSource final : public RowSource {
//     std::string name() const override { return "people"; }
//     std::vector<ColumnSpec> columns() override { return {{"id", "No.", ColumnType::Whole}, {"born"}}; }
//     void read(RowSink& rows, Problems&) override {
//       for (const Person& p : people_) {
//         rows.whole(p.id);
//         p.born ? rows.date(*p.born) : rows.null();
//         rows.endRow();
//       }
//     }
//   };
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "adapters/grid/column_data.h"
#include "support/automation/value.h"

namespace vmgv {

struct ColumnSpec {                       // what a source says of a column
  std::string field;                      // unique within the source
  std::string caption{};                  // the field where empty
  ColumnType type = ColumnType::Unknown;  // Unknown: the values decide
};

class RowSource;

// What went wrong in a load that went on: the first messages in full, the others counted.
class Problems {
 public:
  static constexpr std::size_t kShown = 100;

  // "people.csv:17: 3 fields instead of 4; ..."
  void add(const std::string& where, const std::string& what);

  const std::vector<std::string>& messages() const noexcept { return messages_; }
  std::size_t more() const noexcept { return more_; }  // told to nobody
  bool empty() const noexcept { return messages_.empty(); }

 private:
  std::vector<std::string> messages_;
  std::size_t more_ = 0;
};

// Takes the values of one row after the other, in the order of the columns.
//
// A column of type Unknown takes the type of its first value, and a wider one where a later value asks for
// it. A value that fits neither makes the column text: the source is then read once more, for such columns
// alone, and what is no text is written as text.
class RowSink {
 public:
  void null() {
    if (Feed* feed = next()) feed->data.appendNull();
  }
  void text(std::string_view text);  // UTF-8; a text whatever it looks like
  // A value written as text, as files have it: read by the column's type, or, where that is not known, as
  // the narrowest type that gives back what was written. Empty is Null.
  void field(std::string_view text);
  void whole(std::int64_t number);
  void number(double number);
  void date(Date date);  // Null and a problem outside the years 100 to 9999
  void boolean(bool flag);
  // Values left out are Null, values too many are dropped.
  void endRow();

  std::size_t rows() const noexcept { return rows_; }

 private:
  struct Feed {  // what one column has taken so far
    ColumnData data;
    bool declared = false;      // its type is not to be widened
    bool closed = false;        // takes nothing more
    std::size_t misfitRow = 0;  // from 1; 0: every value fitted
    std::string misfit{};
  };
  friend struct Table loadTable(RowSource& source, Problems& problems);

  RowSink(std::string source, Problems& problems) : source_(std::move(source)), problems_(problems) {}
  Feed* next() {
    if (at_ >= feeds_.size()) return nullptr;
    Feed& feed = feeds_[at_++];
    return feed.closed ? nullptr : &feed;
  }
  template <class T>
  void take(T value, ColumnType type);
  void refuse(Feed& feed, std::string text) const;

  std::string source_;
  Problems& problems_;
  std::vector<Feed> feeds_;
  std::size_t at_ = 0;  // the column of the next value
  std::size_t rows_ = 0;
};

class RowSource {
 public:
  virtual ~RowSource() = default;

  // How messages call it: "birds.sqlite#strikes".
  virtual std::string name() const = 0;
  virtual std::vector<ColumnSpec> columns() = 0;
  // All rows; may be called again and then gives the same ones. Throws Error where nothing can be read.
  virtual void read(RowSink& rows, Problems& problems) = 0;
};

// All rows of a source, in columns.
struct Table {
  std::vector<ColumnSpec> specs;  // captions filled in
  std::vector<ColumnData> columns;
  std::size_t rows = 0;
};
Table loadTable(RowSource& source, Problems& problems);

// The source for FILE[#TABLE]: an SQLite database or, whatever its name, a CSV file.
// Error 53 where there is no such file, 75 where it cannot be read, 5 where its content or table is not
// right.
std::unique_ptr<RowSource> openRowSource(const std::string& fileAndTable);

}  // namespace vmgv
