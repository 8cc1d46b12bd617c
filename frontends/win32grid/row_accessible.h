// The rows of a list as assistive technology meets them: each an element, by its position from 1. An
// element's name is its leftmost text, its value the current cell, its description all cells with their
// headers, and the preview.
#pragma once

#include <ole2.h>
//
#include <oleacc.h>

#include "frontends/com/com_object.h"
#include "frontends/win32grid/list_columns.h"

namespace vmgv {

class ListRows;

class RowAccessible final : public ComObject<IAccessible> {
 public:
  RowAccessible(const ListRows& rows, const ListModel& model);

  // The rows are gone; who still holds it learns so.
  void leave() noexcept { rows_ = nullptr; }

  HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) override;
  HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* count) override;
  HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** object) override;
  HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override;
  HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* value) override;
  HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT child, BSTR* description) override;
  HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* role) override;
  HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) override;
  HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* child) override;
  HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                                        VARIANT child) override;
  HRESULT STDMETHODCALLTYPE accHitTest(LONG left, LONG top, VARIANT* child) override;

  // What the window's own element answers, or nobody.
  HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT, BSTR*) override { return S_FALSE; }
  HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR*, VARIANT, LONG*) override { return S_FALSE; }
  HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT, BSTR*) override { return S_FALSE; }
  HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT*) override { return DISP_E_MEMBERNOTFOUND; }
  HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT, BSTR*) override { return S_FALSE; }
  HRESULT STDMETHODCALLTYPE accSelect(LONG, VARIANT) override { return DISP_E_MEMBERNOTFOUND; }
  HRESULT STDMETHODCALLTYPE accNavigate(LONG, VARIANT, VARIANT*) override { return DISP_E_MEMBERNOTFOUND; }
  HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT) override { return DISP_E_MEMBERNOTFOUND; }
  HRESULT STDMETHODCALLTYPE put_accName(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }
  HRESULT STDMETHODCALLTYPE put_accValue(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    return window_->GetTypeInfoCount(count);
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT which, LCID locale, ITypeInfo** info) override {
    return window_->GetTypeInfo(which, locale, info);
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override {
    return window_->GetIDsOfNames(iid, names, count, locale, ids);
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* exception, UINT* argument) override;

 private:
  void* otherInterface(REFIID iid) noexcept override;
  template <class Act>
  HRESULT about(const VARIANT& child, Act act) const noexcept;
  template <class Tell>
  HRESULT tell(const VARIANT& child, BSTR* text, Tell tell) const noexcept;
  std::string cell(LONG position, std::int32_t column) const;

  const ListRows* rows_;
  const ListModel& model_;
  ComPtr<IAccessible> window_;  // the platform's own element
};

}  // namespace vmgv
