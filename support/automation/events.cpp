#include "support/automation/events.h"

#include <algorithm>

namespace vmgv {

std::shared_ptr<void> EventSource::connect(EventSink& sink) {
  sinks_->push_back(&sink);
  return {&sink, [sinks = sinks_](void* gone) { std::erase(*sinks, static_cast<EventSink*>(gone)); }};
}

void EventSource::raise(std::string_view event, std::span<const Value> parameters) const {
  const std::shared_ptr<Sinks> sinks = sinks_;
  for (EventSink* sink : Sinks(*sinks)) {
    if (std::find(sinks->begin(), sinks->end(), sink) != sinks->end()) sink->raised(event, parameters);
  }
}

}  // namespace vmgv
