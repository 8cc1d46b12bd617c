#include "servers/control/fonts.h"

#include <olectl.h>

#include "frontends/com/text.h"
#include "frontends/com/variant.h"
#include "frontends/com/wall.h"

namespace vmgv {
namespace {

// What a stream of ours begins with.
struct Header {
  std::uint32_t signature;
  std::uint32_t hasFont;
};
constexpr std::uint32_t kSignature = 0x31454756;  // "VGE1"

ComPtr<IFontDisp> makeFont(FONTDESC& description) {
  ComPtr<IFontDisp> font;
  check(OleCreateFontIndirect(&description, __uuidof(IFontDisp), font.putVoid()), "font");
  return font;
}

// The same font as an object that can write itself, whatever kind of font the host uses.
ComPtr<IFontDisp> standardCopy(IFontDisp& source) {
  const auto font = ComPtr<IFontDisp>(&source).as<IFont>();
  if (!font) throw errorOf(E_NOINTERFACE, "font");
  BString name;
  FONTDESC description{};
  description.cbSizeofstruct = sizeof(description);
  BOOL italic = FALSE, underline = FALSE, strikethrough = FALSE;
  check(font->get_Name(name.put()), "font");
  check(font->get_Size(&description.cySize), "font");
  check(font->get_Weight(&description.sWeight), "font");
  check(font->get_Charset(&description.sCharset), "font");
  check(font->get_Italic(&italic), "font");
  check(font->get_Underline(&underline), "font");
  check(font->get_Strikethrough(&strikethrough), "font");
  description.lpstrName = name.get();
  description.fItalic = italic;
  description.fUnderline = underline;
  description.fStrikethrough = strikethrough;
  return makeFont(description);
}

}  // namespace

ComPtr<IFontDisp> plainFont() {
  wchar_t name[] = L"Tahoma";
  FONTDESC description{};
  description.cbSizeofstruct = sizeof(description);
  description.lpstrName = name;
  description.cySize.int64 = 80000;  // 8 points
  description.sWeight = FW_NORMAL;
  description.sCharset = DEFAULT_CHARSET;
  return makeFont(description);
}

ComPtr<IFontDisp> ambientFont(IOleClientSite* site) {
  if (const auto ambient = ComPtr<IOleClientSite>(site).as<IDispatch>()) {
    DISPPARAMS none{};
    Variant font;
    if (SUCCEEDED(ambient->Invoke(DISPID_AMBIENT_FONT, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET,
                                  &none, &font, nullptr, nullptr)) &&
        (font.vt == VT_DISPATCH || font.vt == VT_UNKNOWN)) {
      if (auto found = ComPtr<IUnknown>(font.punkVal).as<IFontDisp>()) return found;
    }
  }
  return plainFont();
}

bool sameFont(IUnknown* one, IUnknown* other) noexcept {
  const auto first = ComPtr<IUnknown>(one).as<IFont>(), second = ComPtr<IUnknown>(other).as<IFont>();
  return first && second && first->IsEqual(second.get()) == S_OK;
}

void saveFont(IStream& stream, IFontDisp* font) {
  const Header header{kSignature, font ? 1U : 0U};
  check(stream.Write(&header, sizeof(header), nullptr), "saving the font");
  if (!font) return;
  const auto persisted = standardCopy(*font).as<IPersistStream>();
  if (!persisted) throw errorOf(E_NOINTERFACE, "saving the font");
  check(persisted->Save(&stream, TRUE), "saving the font");
}

ComPtr<IFontDisp> loadFont(IStream& stream) {
  Header header{};
  ULONG read = 0;
  check(stream.Read(&header, sizeof(header), &read), "loading the font");
  if (read != sizeof(header) || header.signature != kSignature || header.hasFont > 1) {
    throw Error(STG_E_INVALIDHEADER, "loading the font: the stream was not written by this control");
  }
  if (!header.hasFont) return nullptr;
  auto font = plainFont();
  const auto persisted = font.as<IPersistStream>();
  if (!persisted) throw errorOf(E_NOINTERFACE, "loading the font");
  const HRESULT loaded = persisted->Load(&stream);
  if (loaded != S_OK) throw Error(STG_E_READFAULT, "loading the font: the stream is damaged");
  return font;
}

}  // namespace vmgv
