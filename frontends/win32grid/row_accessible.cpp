#include "frontends/win32grid/row_accessible.h"

#include <algorithm>

#include "frontends/com/text.h"
#include "frontends/com/wall.h"
#include "frontends/win32grid/list_rows.h"

namespace vmgv {
namespace {

void number(VARIANT* out, LONG value) noexcept {
  V_VT(out) = VT_I4;
  V_I4(out) = value;
}

}  // namespace

RowAccessible::RowAccessible(const ListRows& rows, const ListModel& model) : rows_(&rows), model_(model) {
  check(CreateStdAccessibleObject(rows.window(), OBJID_CLIENT, __uuidof(IAccessible), window_.putVoid()),
        "the list's accessible element");
}

void* RowAccessible::otherInterface(REFIID iid) noexcept {
  return iid == __uuidof(IDispatch) ? static_cast<IDispatch*>(this) : nullptr;
}

// Calls act(position), 0 meaning the list itself.
template <class Act>
HRESULT RowAccessible::about(const VARIANT& child, Act act) const noexcept {
  if (!rows_) return CO_E_OBJNOTCONNECTED;
  return guarded([&]() -> HRESULT {
    if (V_VT(&child) != VT_I4 || V_I4(&child) < 0 || V_I4(&child) > model_.engine->rowCount()) {
      return E_INVALIDARG;
    }
    return act(V_I4(&child));
  });
}

template <class Tell>
HRESULT RowAccessible::tell(const VARIANT& child, BSTR* text, Tell tell) const noexcept {
  if (!text) return E_POINTER;
  *text = nullptr;
  return about(child, [&](LONG position) -> HRESULT {
    if (position == 0) return S_FALSE;
    const std::string told = tell(position);
    if (told.empty()) return S_FALSE;
    *text = BString(told).detach();
    return S_OK;
  });
}

std::string RowAccessible::cell(LONG position, std::int32_t column) const {
  return model_.engine->column(column).caption + ": " + model_.engine->displayText(position, column);
}

HRESULT RowAccessible::get_accParent(IDispatch** parent) { return window_->get_accParent(parent); }

HRESULT RowAccessible::get_accChildCount(LONG* count) {
  VARIANT self;
  number(&self, CHILDID_SELF);
  return about(self, [&](LONG) { return *count = model_.engine->rowCount(), S_OK; });
}

HRESULT RowAccessible::get_accChild(VARIANT, IDispatch** object) {
  *object = nullptr;
  return S_FALSE;  // elements, not objects
}

HRESULT RowAccessible::get_accName(VARIANT child, BSTR* name) {
  if (V_VT(&child) == VT_I4 && V_I4(&child) == CHILDID_SELF) return window_->get_accName(child, name);
  return tell(child, name, [&](LONG position) {
    return model_.columns.empty() ? std::string()
                                  : model_.engine->displayText(position, model_.columns.front().index);
  });
}

HRESULT RowAccessible::get_accValue(VARIANT child, BSTR* value) {
  return tell(child, value, [&](LONG position) {
    const std::int32_t column = rows_->currentColumn();
    const bool header = model_.engine->displayRow(position).rowType == kGroupHeaderRow;
    return header || column == 0 ? std::string() : cell(position, column);
  });
}

HRESULT RowAccessible::get_accDescription(VARIANT child, BSTR* description) {
  return tell(child, description, [&](LONG position) {
    const DisplayRow row = model_.engine->displayRow(position);
    std::string text;
    if (row.rowType == kGroupHeaderRow) return text;
    for (const ShownColumn& column : model_.columns) text += cell(position, column.index) + "; ";
    text += model_.engine->previewText(row);
    for (const SharedCondition& condition : model_.engine->reasonsOf(row).matching)
      text += "; " + condition->name;
    return text;
  });
}

HRESULT RowAccessible::get_accRole(VARIANT child, VARIANT* role) {
  return about(child, [&](LONG position) {
    const bool header = position > 0 && model_.engine->displayRow(position).rowType == kGroupHeaderRow;
    number(role, position == 0 ? ROLE_SYSTEM_LIST : header ? ROLE_SYSTEM_OUTLINEITEM : ROLE_SYSTEM_LISTITEM);
    return S_OK;
  });
}

HRESULT RowAccessible::get_accState(VARIANT child, VARIANT* state) {
  return about(child, [&](LONG position) -> HRESULT {
    if (position == 0) return window_->get_accState(child, state);
    const DisplayRow row = model_.engine->displayRow(position);
    const auto& selected = model_.engine->selection();
    LONG bits = STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_SELECTABLE;
    if (std::binary_search(selected.begin(), selected.end(), position)) bits |= STATE_SYSTEM_SELECTED;
    if (position == rows_->currentRow() && GetFocus() == rows_->window()) bits |= STATE_SYSTEM_FOCUSED;
    const RECT place = rows_->rectOf(position);
    if (IsRectEmpty(&place)) bits |= STATE_SYSTEM_OFFSCREEN;
    if (row.rowType == kGroupHeaderRow) {
      bits |= model_.engine->isExpanded(row) ? STATE_SYSTEM_EXPANDED : STATE_SYSTEM_COLLAPSED;
    }
    return number(state, bits), S_OK;
  });
}

HRESULT RowAccessible::get_accFocus(VARIANT* child) {
  if (!rows_) return CO_E_OBJNOTCONNECTED;
  V_VT(child) = VT_EMPTY;
  if (GetFocus() == rows_->window()) number(child, rows_->currentRow());
  return S_OK;
}

HRESULT RowAccessible::accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) {
  return about(child, [&](LONG position) -> HRESULT {
    if (position == 0) return window_->accLocation(left, top, width, height, child);
    RECT rect = rows_->rectOf(position);
    MapWindowPoints(rows_->window(), nullptr, reinterpret_cast<POINT*>(&rect), 2);
    *left = rect.left;
    *top = rect.top;
    *width = rect.right - rect.left;
    *height = rect.bottom - rect.top;
    return S_OK;
  });
}

HRESULT RowAccessible::accHitTest(LONG left, LONG top, VARIANT* child) {
  if (!rows_) return CO_E_OBJNOTCONNECTED;
  POINT point{left, top};
  ScreenToClient(rows_->window(), &point);
  const RECT room = rows_->client();
  V_VT(child) = VT_EMPTY;
  if (!PtInRect(&room, point)) return S_FALSE;
  return guarded([&] { number(child, rows_->positionAt(point.y)); });
}

HRESULT RowAccessible::Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                              VARIANT* result, EXCEPINFO* exception, UINT* argument) {
  ComPtr<ITypeInfo> info;
  const HRESULT found = GetTypeInfo(0, LOCALE_USER_DEFAULT, info.put());
  if (FAILED(found)) return found;
  return info->Invoke(static_cast<IAccessible*>(this), member, flags, parameters, result, exception,
                      argument);
}

}  // namespace vmgv
