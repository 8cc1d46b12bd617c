#include "hosts/gridhost/list_grid.h"

#include <algorithm>
#include <utility>

#include "frontends/com/text.h"

namespace vmgv {
namespace {

constexpr std::int32_t kSampledRows = 50;                     // looked at for a column's width
constexpr int kPadding = 16, kNarrowest = 40, kWidest = 320;  // pixels of a usual monitor
constexpr COLORREF kEvenRow = RGB(240, 244, 250);

int formatOf(Alignment alignment) {
  switch (alignment) {
    case Alignment::Left: return LVCFMT_LEFT;
    case Alignment::Centre: return LVCFMT_CENTER;
    case Alignment::Right: return LVCFMT_RIGHT;
  }
  return LVCFMT_LEFT;
}

}  // namespace

ListGrid::ListGrid(HWND parent, std::shared_ptr<GridEngine> engine)
    : window_(CreateWindowExW(WS_EX_CLIENTEDGE, WC_LISTVIEWW, L"",
                              WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA |
                                  LVS_SHOWSELALWAYS | LVS_NOSORTHEADER,
                              0, 0, 0, 0, parent, nullptr, nullptr, nullptr)),
      engine_(std::move(engine)) {
  ListView_SetExtendedListViewStyle(window_, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER);
  engine_->addObserver(this);
}

ListGrid::~ListGrid() { engine_->removeObserver(this); }

// The list aligns its first column to the left whatever it is told, as long as it is the first one inserted.
void ListGrid::showColumns() {
  SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
  while (ListView_DeleteColumn(window_, 0)) {
  }
  insertColumn(0, L"", LVCFMT_LEFT, 0);
  columns_ = engine_->visibleColumns();
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    insertColumn(static_cast<int>(i) + 1, wide(engine_->column(columns_[i]).caption),
                 formatOf(engine_->alignment(columns_[i])), widthOf(columns_[i]));
  }
  ListView_DeleteColumn(window_, 0);
  rowsChanged();
  SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
}

void ListGrid::insertColumn(int place, const std::wstring& caption, int format, int width) const {
  LVCOLUMNW column{};
  column.mask = LVCF_FMT | LVCF_TEXT | LVCF_WIDTH;
  column.fmt = format;
  column.cx = width;
  column.pszText = const_cast<wchar_t*>(caption.c_str());
  SendMessageW(window_, LVM_INSERTCOLUMNW, place, reinterpret_cast<LPARAM>(&column));
}

// Enough for the caption and the first rows.
int ListGrid::widthOf(std::int32_t column) const {
  const int dpi = static_cast<int>(GetDpiForWindow(window_));
  const auto scaled = [dpi](int pixels) { return MulDiv(pixels, dpi, USER_DEFAULT_SCREEN_DPI); };
  if (const int chosen = engine_->column(column).width; chosen > 0) return scaled(chosen);
  const auto measured = [this](const std::string& text) {
    return static_cast<int>(
        SendMessageW(window_, LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(wide(text).c_str())));
  };
  int width = measured(engine_->column(column).caption);
  for (std::int32_t row = 1; row <= std::min(kSampledRows, engine_->rowCount()); ++row) {
    width = std::max(width, measured(engine_->displayText(row, column)));
  }
  return std::clamp(width + scaled(kPadding), scaled(kNarrowest), scaled(kWidest));
}

void ListGrid::rowsChanged() {
  ListView_SetItemCountEx(window_, engine_->rowCount(), LVSICF_NOSCROLL);
  selectionChanged();
  InvalidateRect(window_, nullptr, TRUE);
}

void ListGrid::selectionChanged() {
  if (following_) return;
  following_ = true;
  ListView_SetItemState(window_, -1, 0, LVIS_SELECTED);
  for (const std::int32_t row : engine_->selection()) {
    ListView_SetItemState(window_, row - 1, LVIS_SELECTED, LVIS_SELECTED);
  }
  following_ = false;
}

void ListGrid::takeSelection() {
  if (following_) return;
  std::vector<std::int32_t> rows;
  for (int row = -1; (row = ListView_GetNextItem(window_, row, LVNI_SELECTED)) >= 0;) rows.push_back(row + 1);
  following_ = true;
  engine_->select(std::move(rows));
  following_ = false;
}

void ListGrid::tell(LVITEMW& cell) {
  if (!(cell.mask & LVIF_TEXT) || cell.iItem >= engine_->rowCount()) return;
  told_ = wide(engine_->displayText(cell.iItem + 1, columns_.at(static_cast<std::size_t>(cell.iSubItem))));
  cell.pszText = told_.data();
}

LRESULT ListGrid::notified(NMHDR& message) {
  switch (message.code) {
    case LVN_GETDISPINFOW: tell(reinterpret_cast<NMLVDISPINFOW&>(message).item); return 0;
    case LVN_ITEMCHANGED:
      if (reinterpret_cast<NMLISTVIEW&>(message).uChanged & LVIF_STATE) takeSelection();
      return 0;
    case LVN_ODSTATECHANGED: takeSelection(); return 0;
    case NM_CUSTOMDRAW: {
      auto& draw = reinterpret_cast<NMLVCUSTOMDRAW&>(message);
      if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
      const bool even = draw.nmcd.dwDrawStage == CDDS_ITEMPREPAINT && draw.nmcd.dwItemSpec % 2 == 1;
      if (even && engine_->settings().useEvenOddColor) draw.clrTextBk = kEvenRow;
      return CDRF_DODEFAULT;
    }
    default: return 0;
  }
}

}  // namespace vmgv
