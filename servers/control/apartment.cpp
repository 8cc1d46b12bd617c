#include "servers/control/apartment.h"

#include "frontends/win32/win32_desktop.h"
#include "frontends/win32/win32_system.h"
#include "servers/control/shared_strings.h"

namespace vmgv {
namespace {

struct Apartment : std::enable_shared_from_this<Apartment> {
  Apartment() { current = this; }
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
  ~Apartment() { current = nullptr; }

  static thread_local Apartment* current;

  Win32Desktop desktop;
  Win32System system{desktop};
  SharedStrings strings;
  Application application{desktop, system, strings};
};

thread_local Apartment* Apartment::current = nullptr;

}  // namespace

std::shared_ptr<Application> apartmentApplication() {
  const auto apartment =
      Apartment::current ? Apartment::current->shared_from_this() : std::make_shared<Apartment>();
  return {apartment, &apartment->application};
}

}  // namespace vmgv
