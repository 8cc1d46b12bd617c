// Pages and what they are drawn on as late-bound objects, so that a grid and a preview of two parties, or of
// two modules, understand each other. Within one module the pages find back without a late-bound call.
//
// A preview has
//   ShowPages(pages)
// Pages have
//   PageCount, PageWidth, PageHeight, DrawPage(page, surface), SetUp(), Print(showDialog)
// A surface, which is there for one DrawPage only, has in points and colours 0xRRGGBB
//   FillRect(left, top, width, height, colour)
//   DrawLine(x1, y1, x2, y2, width, colour)
//   DrawText(x, baseline, text, family, size, style, colour); style: 1 bold, 2 italic, 4 underline, 8 struck
//   SetClip(left, top, width, height), ResetClip()
#pragma once

#include <memory>

#include "support/automation/object.h"
#include "support/pages/page_source.h"

namespace vmgv {

ObjectRef objectOf(std::shared_ptr<PageSource> pages);
// The pages behind an object: those that it was made of, else the ones that it answers for.
std::shared_ptr<PageSource> pagesOf(const ObjectRef& object);

}  // namespace vmgv
