// A grid as a PDF with the header of its last preview, today's date and the page counter.
#pragma once

#include <memory>
#include <string>

#include "adapters/grid/engine.h"
#include "support/forms/system_port.h"

namespace vmgv {

// What is written to the printer properties stays there, as a preview's does. The number of pages. Error 482
// where nothing prints here, Error 75 where the file cannot be written.
std::int32_t printReport(const std::shared_ptr<GridEngine>& engine, SystemPort& system,
                         const std::string& file);

}  // namespace vmgv
