#include "hosts/player/player.h"

#include "hosts/player/paths.h"
#include "hosts/player/words.h"
#include "support/automation/error.h"

namespace vmgv {
namespace {

Place placeOf(User& user) {
  if (user.box()) return kAtBox;
  return user.form() ? kAtDialog : kAtHost;
}

std::string namesOf(unsigned places) {
  if (places == kAtHost) return "nothing open";
  if (places == kAtDialog) return "a dialog";
  return places == kAtBox ? "a box" : "a dialog or box";
}

}  // namespace

Player::Player(std::filesystem::path script, std::filesystem::path outFolder, Stage stage,
               std::ostream& errors)
    : script_(std::move(script)), actions_(std::move(stage), std::move(outFolder)), errors_(errors) {}

int Player::run() {
  if (!load()) return 1;
  while (!failed_ && !atEnd()) playNext();
  return failed_ ? 1 : 0;
}

// A script with a bad line is not begun.
bool Player::load() {
  try {
    for (ScriptLine& line : readScript(script_)) {
      try {
        const Command& command = commandOf(line);
        line.words.erase(line.words.begin());
        lines_.push_back({line.number, &command, std::move(line.words)});
      } catch (const CannotDo& error) {
        fail(line.number, error.what());
        return false;
      }
    }
  } catch (const ScriptError& error) {
    failed_ = true;
    errors_ << error.what() << '\n';
  }
  return !failed_;
}

bool Player::waiting() {
  outlook_.known = false;
  if (!failed_ && atEnd()) {
    fail(lines_.empty() ? 0 : lines_.back().number,
         "expected nothing open at the end, found " + actions_.whatIsOnTop());
  }
  if (failed_) return closeTop();
  playNext();
  return true;
}

void Player::yielding() {
  if (actingInYield_ || (!failed_ && !fitsNow())) return;
  actingInYield_ = true;
  while (!failed_ && fitsNow()) playNext();
  // What is under way ends sooner; a dialog that refuses is closed when it waits.
  if (failed_ && actions_.user().form() && actions_.user().form() != askedToClose_) closeTop();
  actingInYield_ = false;
}

void Player::playNext() {
  outlook_.known = false;
  playLine(lines_[next_++]);
  outlook_.known = false;
}

void Player::playLine(const Line& line) {
  const Command& command = *line.command;
  try {
    if (!(command.places & placeOf(actions_.user()))) {
      throw CannotDo("expected " + namesOf(command.places) + ", found " + actions_.whatIsOnTop());
    }
    (actions_.*command.run)(line.words);
  } catch (const Error& error) {
    fail(line.number, "error " + std::to_string(error.number()) + ": " + error.description());
  } catch (const std::exception& error) {
    fail(line.number, error.what());
  }
}

Player::Outlook Player::outlook() const {
  Outlook found;
  found.known = true;
  Form* form = actions_.user().form();
  if (atEnd() || !form) return found;
  const Line& line = lines_[next_];
  switch (line.command->whileWorking) {
    case WhileWorking::Never: return found;
    case WhileWorking::Dialog: break;
    case WhileWorking::Control:
      found.control = form->find(line.words[0].text);
      if (!found.control) return found;
      break;
    case WhileWorking::Property:
    case WhileWorking::Watch:
      try {
        Watch watch(*form, PropertyName::from(line.words[0].text), line.words[1].text);
        if (line.command->whileWorking == WhileWorking::Watch) found.watch = std::move(watch);
      } catch (const CannotDo&) {
        return found;  // it may fit what is open when the operation has ended
      }
      break;
  }
  found.form = form;
  return found;
}

bool Player::fitsNow() {
  if (!outlook_.known) outlook_ = outlook();
  if (!outlook_.form || outlook_.form != actions_.user().form()) return false;
  if (outlook_.control && !isUsable(*outlook_.control)) return false;
  return !outlook_.watch || outlook_.watch->reached();
}

void Player::fail(int line, const std::string& reason) {
  if (failed_) return;
  failed_ = true;
  errors_ << pathText(script_) << ':' << line << ": " << reason << '\n';
}

// A form that did not follow the title bar is closed without asking.
bool Player::closeTop() {
  User& user = actions_.user();
  try {
    if (const Box* box = user.box()) {
      switch (box->kind) {
        case Box::Kind::Message:
          user.answer(box->style == MessageStyle::Question ? MessageResult::No : MessageResult::Ok);
          break;
        case Box::Kind::File: user.pick({}); break;
        case Box::Kind::Palette: user.chooseColour({}); break;
        case Box::Kind::PageSetup:
        case Box::Kind::Print: user.answer(MessageResult::Cancel); break;
      }
    } else if (Form* form = user.form()) {
      if (std::exchange(askedToClose_, form) == form) {
        form->close();
      } else {
        user.closeWindow();
      }
    }
    return true;
  } catch (const std::exception&) {
    return false;  // the first error is the one that is told
  }
}

}  // namespace vmgv
