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

}  // namespace vmgv::test
