#include "support/strings/spoken.h"

#include "support/strings/string_service.h"

namespace vmgv {

std::string spokenName(Spoken name, std::int32_t language) {
  const bool greek = language == kGreek;
  switch (name) {
    case Spoken::ShowColumn: return greek ? "Εμφάνιση της στήλης" : "Show the column";
    case Spoken::ShowAllColumns: return greek ? "Εμφάνιση όλων των στηλών" : "Show all columns";
    case Spoken::HideColumn: return greek ? "Απόκρυψη της στήλης" : "Hide the column";
    case Spoken::HideAllColumns: return greek ? "Απόκρυψη όλων των στηλών" : "Hide all columns";
    case Spoken::MoveUp: return greek ? "Μετακίνηση επάνω" : "Move up";
    case Spoken::MoveDown: return greek ? "Μετακίνηση κάτω" : "Move down";
  }
  return {};
}

}  // namespace vmgv
