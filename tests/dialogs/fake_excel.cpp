#include "tests/dialogs/fake_excel.h"

#include "tests/dialogs/fake_object.h"

namespace vmgv {

// Any object of the spreadsheet: known by the member that led to it and that member's arguments.
class FakeExcel::Node final : public NamedObject {
 public:
  Node(FakeExcel& excel, const std::string& name, Args args) : NamedObject(name), excel_(excel) {
    for (std::size_t i = 0; i < args.size(); ++i) args_.push_back(args[i]);
  }

 private:
  Value answer(const std::string& name, Access access, Args args) override {
    if (excel_.failing.contains(name)) throw Error(ErrorNumber::Application, name + " failed");
    if (access == Access::Put) return put(name, args[args.size() - 1]);
    if (access == Access::Call && name != "Add") note(name, args.size() == 0 ? Args(args_) : args);
    if (name == "Version") return excel_.version;
    if (name == "Count") return excel_.pivotCaches;
    if (name == "ActiveSheet" && typeName() == "Application" && excel_.sheetGone) return ObjectRef();
    if (name == "Sheets" && !excel_.sheets.contains(toText(args[0]))) {
      throw Error(ErrorNumber::SubscriptOutOfRange);
    }
    if (name == "Cells" && args.size() == 2 && toLong(args[1]) < 1) throw Error(ErrorNumber::Application);
    return makeObject<Node>(excel_, name.empty() ? typeName() : name, args);
  }

  Value put(const std::string& name, const Value& value) {
    if (typeName() != "Cells" || args_.size() != 2) {
      note(name, Args(args_));
      return {};
    }
    const std::pair<int, int> place(toLong(args_[0]), toLong(args_[1]));
    if (name == "NumberFormat") {
      excel_.formats[place] = toText(value);
    } else {
      excel_.cells[place] = value;
    }
    return {};
  }
  void note(const std::string& done, const Args& to) {
    const std::string what = label(to);
    excel_.log.push_back(what.empty() ? done : done + " " + what);
  }
  static std::string label(const Args& args) {
    std::string text;
    for (std::size_t i = 0; i < args.size(); ++i) {
      const Value& arg = args[i];
      const auto* cell = arg.isObject() ? dynamic_cast<const Node*>(arg.object().get()) : nullptr;
      if (!text.empty()) text += cell ? "-" : ",";
      text += cell ? label(Args(cell->args_)) : toText(arg);
    }
    return text;
  }

  FakeExcel& excel_;
  std::vector<Value> args_;
};

ObjectRef FakeExcel::application() { return makeObject<Node>(*this, "Application", Args({})); }

std::string FakeExcel::cell(int row, int column) const {
  const auto found = cells.find({row, column});
  if (found == cells.end()) return "-";
  const auto format = formats.find({row, column});
  return (format == formats.end() ? "" : format->second) + typeName(found->second) + ":" +
         toText(found->second);
}

}  // namespace vmgv
