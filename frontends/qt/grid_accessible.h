// What assistive technology is told of a grid: the group-by box, the headers of the columns, and the rows, of
// which a group's header is one cell that opens and closes.
#pragma once

namespace vmgv {

// Makes Qt ask us about every GridView and GridGroupBox. May be called again.
void installGridAccessibility();

}  // namespace vmgv
