#include "adapters/grid/row_source.h"

#include <cmath>
#include <limits>

#include "adapters/grid/field_text.h"
#include "support/automation/error.h"

namespace vmgv {
namespace {

constexpr std::size_t kMostRows = std::numeric_limits<std::int32_t>::max();  // positions are Long
constexpr std::size_t kQuoted = 40;  // bytes of a value that a message shows

const char* typeWord(ColumnType type) {
  switch (type) {
    case ColumnType::Unknown: return "any";
    case ColumnType::Text: return "text";
    case ColumnType::Whole: return "whole numbers";
    case ColumnType::Number: return "numbers";
    case ColumnType::Date: return "dates";
    case ColumnType::Boolean: return "true or false";
  }
  return "";
}

std::string inQuotes(const std::string& text) {
  if (text.size() <= kQuoted) return '"' + text + '"';
  std::size_t end = kQuoted;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;  // whole characters
  return '"' + text.substr(0, end) + "...\"";
}

// Whether 0100-01-01 <= date < 10000-01-01; NaN is not.
bool representable(Date date) { return date.days >= -657434 && date.days < 2958466; }

bool fits(std::int64_t number, double& asDouble) {
  asDouble = static_cast<double>(number);
  return std::abs(asDouble) <= 9007199254740992.0;  // 2^53
}

}  // namespace

void Problems::add(const std::string& where, const std::string& what) {
  if (messages_.size() == kShown) {
    ++more_;
  } else {
    messages_.push_back(where + ": " + what);
  }
}

void RowSink::refuse(Feed& feed, std::string text) const {
  feed.misfitRow = rows_ + 1;
  feed.misfit = std::move(text);
  feed.closed = true;
}

// A value of one type for a column of that type, of none yet, or of text.
template <class T>
void RowSink::take(T value, ColumnType type) {
  Feed* feed = next();
  if (!feed) return;
  if (feed->data.type() == ColumnType::Unknown) feed->data.become(type);
  if (feed->data.type() == type) {
    feed->data.append(value);
  } else if (feed->data.type() == ColumnType::Text) {
    feed->data.append(std::string_view(fieldText(value)));
  } else {
    refuse(*feed, fieldText(value));
  }
}

void RowSink::text(std::string_view text) {
  Feed* feed = next();
  if (!feed) return;
  if (feed->data.type() == ColumnType::Unknown) feed->data.become(ColumnType::Text);
  if (feed->data.type() == ColumnType::Text) {
    feed->data.append(text);
  } else {
    refuse(*feed, std::string(text));
  }
}

void RowSink::whole(std::int64_t number) {
  if (at_ < feeds_.size()) {
    Feed& feed = feeds_[at_];
    double asDouble = 0;
    if (feed.data.type() == ColumnType::Number && fits(number, asDouble)) return this->number(asDouble);
    if (feed.data.type() == ColumnType::Boolean && feed.declared && (number == 0 || number == 1)) {
      return boolean(number == 1);
    }
  }
  take(number, ColumnType::Whole);
}

void RowSink::number(double number) {
  if (at_ < feeds_.size()) {
    Feed& feed = feeds_[at_];
    if (feed.data.type() == ColumnType::Whole && !feed.declared && !feed.closed) {
      feed.data.become(ColumnType::Number);
    }
  }
  take(number, ColumnType::Number);
}

void RowSink::date(Date date) {
  if (!representable(date)) {
    if (at_ < feeds_.size() && !feeds_[at_].closed) {
      problems_.add(source_ + ", row " + std::to_string(rows_ + 1),
                    "a date outside the years 100 to 9999 was left out");
    }
    return null();
  }
  Feed* feed = next();
  if (!feed) return;
  if (feed->data.type() == ColumnType::Unknown) feed->data.become(ColumnType::Date);
  if (feed->data.type() == ColumnType::Date) {
    feed->data.append(date.days);
  } else if (feed->data.type() == ColumnType::Text) {
    feed->data.append(std::string_view(fieldText(date)));
  } else {
    refuse(*feed, fieldText(date));
  }
}

void RowSink::boolean(bool flag) { take(flag, ColumnType::Boolean); }

void RowSink::field(std::string_view text) {
  if (text.empty()) return null();
  if (at_ >= feeds_.size() || feeds_[at_].closed) {
    ++at_;
    return;
  }
  const ColumnType type = feeds_[at_].data.type();
  const bool open = type == ColumnType::Unknown;
  if (open || type == ColumnType::Whole || type == ColumnType::Number) {
    if (type != ColumnType::Number) {
      if (const auto value = wholeFromField(text)) return whole(*value);
    }
    if (const auto value = numberFromField(text)) return number(*value);
  }
  if (open || type == ColumnType::Date) {
    if (const auto value = dateFromField(text)) return date(*value);
  }
  if (open || type == ColumnType::Boolean) {
    if (const auto value = booleanFromField(text)) return boolean(*value);
  }
  this->text(text);
}

void RowSink::endRow() {
  while (at_ < feeds_.size()) null();
  at_ = 0;
  if (++rows_ > kMostRows) throw Error(ErrorNumber::OutOfMemory, source_ + " has too many rows for a grid");
}

Table loadTable(RowSource& source, Problems& problems) {
  Table table{source.columns(), {}, 0};
  RowSink first(source.name(), problems);
  for (ColumnSpec& spec : table.specs) {
    if (spec.caption.empty()) spec.caption = spec.field;
    first.feeds_.push_back({ColumnData(spec.type), spec.type != ColumnType::Unknown});
  }
  source.read(first, problems);
  table.rows = first.rows();

  Problems toldBefore;
  RowSink again(source.name(), toldBefore);
  bool needed = false;
  for (std::size_t i = 0; i < first.feeds_.size(); ++i) {
    RowSink::Feed& feed = first.feeds_[i];
    again.feeds_.push_back({ColumnData(ColumnType::Text)});
    again.feeds_.back().closed = feed.misfitRow == 0;
    if (feed.misfitRow == 0) continue;
    needed = true;
    feed.data = ColumnData();  // its memory is wanted for the next reading
    if (feed.declared) {
      problems.add(source.name() + ", row " + std::to_string(feed.misfitRow),
                   "column \"" + table.specs[i].field + "\" is declared to hold " +
                       typeWord(table.specs[i].type) + " but has " + inQuotes(feed.misfit) +
                       "; the whole column is read as text");
    }
  }
  if (needed) {
    source.read(again, toldBefore);
    if (again.rows() != table.rows) {
      throw Error(ErrorNumber::DeviceIo, source.name() + " changed while it was read; read it again");
    }
  }
  for (std::size_t i = 0; i < first.feeds_.size(); ++i) {
    RowSink::Feed& feed = first.feeds_[i].misfitRow == 0 ? first.feeds_[i] : again.feeds_[i];
    feed.data.finish();
    table.specs[i].type = feed.data.type();
    table.columns.push_back(std::move(feed.data));
  }
  return table;
}

}  // namespace vmgv
