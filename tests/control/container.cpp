#include "tests/control/container.h"

#include <gtest/gtest.h>

namespace vmgv::test {

ComPtr<IFontDisp> makeFont(const wchar_t* name, int points, bool bold) {
  FONTDESC description{};
  description.cbSizeofstruct = sizeof(description);
  description.lpstrName = const_cast<wchar_t*>(name);
  description.cySize.int64 = points * 10000;
  description.sWeight = bold ? FW_BOLD : FW_NORMAL;
  ComPtr<IFontDisp> font;
  EXPECT_EQ(S_OK, OleCreateFontIndirect(&description, __uuidof(IFontDisp), font.putVoid()));
  return font;
}

std::string described(IFontDisp* font) {
  const auto full = ComPtr<IFontDisp>(font).as<IFont>();
  if (!full) return "no font";
  BString name;
  CY size{};
  BOOL bold = FALSE;
  full->get_Name(name.put());
  full->get_Size(&size);
  full->get_Bold(&bold);
  return narrow(name.view()) + " " + std::to_string(size.int64 / 10000) + (bold ? " bold" : "");
}

std::string fontOf(_vmgrEdit& control) {
  ComPtr<IFontDisp> font;
  EXPECT_EQ(S_OK, control.get_Font(font.put()));
  return described(font.get());
}

Container::Container(ComPtr<IFontDisp> ambientFont)
    : ambient(std::move(ambientFont)),
      window(CreateWindowExW(0, L"STATIC", L"container", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300, 200,
                             nullptr, nullptr, nullptr, nullptr)) {}

Container::~Container() { DestroyWindow(window); }

HRESULT Container::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT at,
                                    LPRECT clip, LPOLEINPLACEFRAMEINFO) {
  *frame = nullptr;
  *document = nullptr;
  *at = position;
  GetClientRect(window, clip);
  return S_OK;
}

HRESULT Container::OnPosRectChange(LPCRECT wanted) {
  ++sizeRequests;
  position = *wanted;
  RECT clip;
  GetClientRect(window, &clip);
  return placed ? placed->SetObjectRects(&position, &clip) : S_OK;
}

HRESULT Container::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*, UINT*) {
  if (id != DISPID_AMBIENT_FONT || !ambient) return DISP_E_MEMBERNOTFOUND;
  result->vt = VT_DISPATCH;
  result->pdispVal = ComPtr<IFontDisp>(ambient).detach();
  return S_OK;
}

HRESULT Bag::Read(LPCOLESTR name, VARIANT* value, IErrorLog*) {
  const auto found = kept.find(name);
  if (found == kept.end()) return E_INVALIDARG;
  value->vt = VT_UNKNOWN;
  value->punkVal = ComPtr<IUnknown>(found->second).detach();
  return S_OK;
}

HRESULT Bag::Write(LPCOLESTR name, VARIANT* value) {
  if (value->vt != VT_DISPATCH && value->vt != VT_UNKNOWN) return E_INVALIDARG;
  kept[name] = value->punkVal;
  return S_OK;
}

}  // namespace vmgv::test
