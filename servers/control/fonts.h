// Fonts as hosts hand them over and keep them.
#pragma once

#include <ole2.h>
//
#include <ocidl.h>

#include "frontends/com/com_ptr.h"

namespace vmgv {

// The font of a container that has none of its own.
ComPtr<IFontDisp> plainFont();

// The container's ambient font, or the plain one. Throws Error.
ComPtr<IFontDisp> ambientFont(IOleClientSite* site);

// Whether two fonts look the same, whichever objects they are.
bool sameFont(IUnknown* one, IUnknown* other) noexcept;

// A font, or that there is none, in a stream. Loading throws Error where the stream holds nothing of ours,
// and makes no object but the standard font.
void saveFont(IStream& stream, IFontDisp* font);
ComPtr<IFontDisp> loadFont(IStream& stream);
inline constexpr ULONG kSavedFontBytes = 300;  // at most: a face name has up to 255 bytes

}  // namespace vmgv
