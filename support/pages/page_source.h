// A document of pages that are drawn when somebody wants to see them.
#pragma once

#include <cstdint>

#include "support/pages/page_surface.h"

namespace vmgv {

class PageSource {
 public:
  virtual ~PageSource() = default;

  // How many pages there are, at least one, and the paper of all of them. Either may be another one after
  // `setUp` and `print`.
  virtual std::int32_t count() = 0;
  virtual PageSize paper() = 0;
  // Error 9 where there is no such page; pages count from 1.
  virtual void draw(std::int32_t page, PageSurface& surface) = 0;

  // Lets the user choose paper, orientation and margins.
  virtual void setUp() = 0;
  // Prints all pages, or those that the user chooses in the print dialog.
  virtual void print(bool showDialog) = 0;
};

}  // namespace vmgv
