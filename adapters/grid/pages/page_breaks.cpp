#include "adapters/grid/pages/page_breaks.h"

namespace vmgv {
namespace {

constexpr double kHeightRounding = 1e-6;
constexpr double kLeadersShare = 0.5;  // of a page that headers without their first row may take

class Breaker {
 public:
  explicit Breaker(PageRooms rooms) : rooms_(rooms), left_(rooms.first) {}

  void add(std::int32_t row, const RowHeight& height) {
    const double whole = height.row + height.lines * height.line;
    if (!fits(whole)) moveOn(row, whole);
    if (fits(whole)) {
      take(whole);
    } else {
      addInParts(row, height);
    }
    leaders_ = height.leadsNext ? leaders_ + 1 : 0;
    leadersHeight_ = height.leadsNext ? leadersHeight_ + whole : 0;
  }

  std::vector<PageStart> end(std::int32_t rows) {
    starts_.push_back({rows, 0});
    return std::move(starts_);
  }

 private:
  bool fits(double height) const { return height <= left_ + kHeightRounding; }
  void take(double height) {
    left_ -= height;
    ++held_;
  }
  void startPage(PageStart start) {
    starts_.push_back(start);
    left_ = rooms_.further;
    held_ = 0;
  }

  // To the next page, with the headers above it, where the row fits there.
  void moveOn(std::int32_t row, double whole) {
    const bool alone = leaders_ == held_ || leadersHeight_ > rooms_.further * kLeadersShare;
    const std::int32_t leaders = alone ? 0 : leaders_;
    const double needed = whole + (alone ? 0 : leadersHeight_);
    if (held_ == 0 || needed > rooms_.further + kHeightRounding) return;
    startPage({row - leaders, 0});
    held_ = leaders;
    left_ -= needed - whole;
  }

  void addInParts(std::int32_t row, const RowHeight& height) {
    for (int part = 0; part <= height.lines; ++part) {
      const double needed = part == 0 ? height.row : height.line;
      if (!fits(needed) && held_ > 0) startPage({row, part});
      take(needed);
    }
  }

  PageRooms rooms_;
  double left_;
  std::int32_t held_ = 0;     // rows and parts on the page
  std::int32_t leaders_ = 0;  // the last rows of the page, which lead the next one
  double leadersHeight_ = 0;
  std::vector<PageStart> starts_{{0, 0}};
};

}  // namespace

std::vector<PageStart> breakPages(std::int32_t rows, const std::function<RowHeight(std::int32_t)>& heightOf,
                                  PageRooms rooms) {
  Breaker breaker(rooms);
  for (std::int32_t row = 0; row < rows; ++row) breaker.add(row, heightOf(row));
  return breaker.end(rows);
}

}  // namespace vmgv
