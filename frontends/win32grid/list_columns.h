// Which columns a list shows, and how wide: what its parts have in common.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "adapters/grid/engine.h"
#include "frontends/win32grid/list_look.h"

namespace vmgv {

struct ShownColumn {
  std::int32_t index = 0;
  int width = 0;  // pixels

  bool operator==(const ShownColumn&) const = default;
};

struct ListModel {
  std::shared_ptr<GridEngine> engine;
  std::unique_ptr<ListLook> look;
  std::vector<ShownColumn> columns{};  // from left to right

  int width() const noexcept;  // of all columns
};

// Columns are as wide as the user or a client made them, else as their texts need; where the grid is set so,
// they are stretched or shrunk to the room there is.
class ColumnWidths {
 public:
  std::vector<ShownColumn> shown(const GridEngine& engine, const ListLook& look, int room);
  // For another font or density.
  void forget() { natural_.clear(); }

 private:
  int natural(const GridEngine& engine, const ListLook& look, std::int32_t column);

  std::vector<int> natural_;         // by index; 0: not measured yet
  std::vector<std::string> fields_;  // of which these are the widths
  std::size_t records_ = 0;
};

// The beginning of a text in one line, as far as a cell could ever show it.
std::wstring cellText(std::string text);

}  // namespace vmgv
