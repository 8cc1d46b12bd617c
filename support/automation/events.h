// Events of late-bound objects, heard by name.
#pragma once

#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "support/automation/value.h"

namespace vmgv {

class EventSink {
 public:
  virtual ~EventSink() = default;
  // What a sink throws goes to whoever raised the event.
  virtual void raised(std::string_view event, std::span<const Value> parameters) = 0;
};

// An object's part that raises events. Sinks may come and go while one is raised.
class EventSource {
 public:
  // The sink hears until the connection is dropped. Either end may be gone first.
  std::shared_ptr<void> connect(EventSink& sink);
  bool heard() const noexcept { return !sinks_->empty(); }
  void raise(std::string_view event, std::span<const Value> parameters) const;

 private:
  using Sinks = std::vector<EventSink*>;
  std::shared_ptr<Sinks> sinks_ = std::make_shared<Sinks>();
};

}  // namespace vmgv
