// Sizes and places on a form, in the form's unit: the twip, 1/1440 inch, whatever the screen's scale.
#pragma once

namespace vmgv {

struct Size {  // in twips
  int width = 0, height = 0;
  bool operator==(const Size&) const = default;
};

struct Rect {  // relative to the container
  int left = 0, top = 0, width = 0, height = 0;
  int right() const noexcept { return left + width; }
  int bottom() const noexcept { return top + height; }
  bool operator==(const Rect&) const = default;
};

struct Insets {  // what a container's border takes from its inside
  int left = 0, top = 0, right = 0, bottom = 0;
};

}  // namespace vmgv
