#include "adapters/grid/grid_state.h"

#include <utility>

namespace vmgv {

void GridHistory::start(const GridState& state) {
  states_.assign(1, state);
  at_ = 0;
}

void GridHistory::record(GridState state) {
  if (state == states_[at_]) return;
  states_.resize(at_ + 1);
  states_.push_back(std::move(state));
  if (states_.size() > kSteps + 1) states_.erase(states_.begin());
  at_ = states_.size() - 1;
}

}  // namespace vmgv
