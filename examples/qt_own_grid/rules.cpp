// FmtConditions: the rules that colour rows. The dialog writes each change at once.
//
// A rule is known by its name, also to objects that outlive its removal.
#include <algorithm>

#include "table.h"

using vmgv::Args;
using vmgv::Error;
using vmgv::ErrorNumber;
using vmgv::Value;

namespace {

QColor colourOf(const Value& value) {
  const int number = vmgv::toLong(value);
  return QColor(number & 0xFF, number >> 8 & 0xFF, number >> 16 & 0xFF);
}

QString textOf(const Value& value) { return QString::fromStdString(vmgv::toText(value)); }

// An operand that was never written is Empty.
QVariant operandOf(const Value& value) { return value.isMissing() ? QVariant() : QVariant(textOf(value)); }
Value operandOf(const QVariant& operand) {
  return operand.isNull() ? Value() : Value(operand.toString().toStdString());
}

Rule& ruleOf(Table& table, const QString& name) {
  auto& rules = table.rows().rules;
  const auto found =
      std::find_if(rules.begin(), rules.end(), [&](const Rule& rule) { return rule.name == name; });
  if (found == rules.end()) throw Error(ErrorNumber::SubscriptOutOfRange);
  return *found;
}

// What both a rule and its style do.
template <class T>
class RulePart : public TablePart<T> {
 public:
  RulePart(TableRef table, QString name) : TablePart<T>(std::move(table)), name_(std::move(name)) {}

 protected:
  Rule& rule() const { return ruleOf(*this->table_, name_); }
  void changed() const { this->table_->rows().repaint(); }

  QString name_;
};

// The dialog takes what equals the grid's own for not set, and writes that to take a setting back.
class Style final : public RulePart<Style> {
 public:
  using RulePart::RulePart;

  static const vmgv::ClassTable<Style>& table() {
    static const vmgv::ClassTable<Style> table(
        "FormatStyle",
        {
            {"BackColor", 0, [](Style& s, Args) { return s.colour(&Look::back, QPalette::Base); },
             [](Style& s, Args, const Value& v) { s.setColour(&Look::back, QPalette::Base, v); }},
            {"ForeColor", 0, [](Style& s, Args) { return s.colour(&Look::fore, QPalette::Text); },
             [](Style& s, Args, const Value& v) { s.setColour(&Look::fore, QPalette::Text, v); }},
            {"FontName", 0,
             [](Style& s, Args) -> Value {
               return s.look().family.value_or(s.font().family()).toStdString();
             },
             [](Style& s, Args, const Value& v) { s.set(&Look::family, s.font().family(), textOf(v)); }},
            {"FontSize", 0,
             [](Style& s, Args) -> Value { return s.look().points.value_or(s.font().pointSizeF()); },
             [](Style& s, Args, const Value& v) {
               s.set(&Look::points, s.font().pointSizeF(), vmgv::toDouble(v));
             }},
            {"FontBold", 0, [](Style& s, Args) -> Value { return s.look().bold.value_or(s.font().bold()); },
             [](Style& s, Args, const Value& v) { s.set(&Look::bold, s.font().bold(), vmgv::toBoolean(v)); }},
            {"FontItalic", 0,
             [](Style& s, Args) -> Value { return s.look().italic.value_or(s.font().italic()); },
             [](Style& s, Args, const Value& v) {
               s.set(&Look::italic, s.font().italic(), vmgv::toBoolean(v));
             }},
            {"FontUnderline", 0,
             [](Style& s, Args) -> Value { return s.look().underline.value_or(s.font().underline()); },
             [](Style& s, Args, const Value& v) {
               s.set(&Look::underline, s.font().underline(), vmgv::toBoolean(v));
             }},
            {"FontStrikethru", 0,
             [](Style& s, Args) -> Value { return s.look().strikeOut.value_or(s.font().strikeOut()); },
             [](Style& s, Args, const Value& v) {
               s.set(&Look::strikeOut, s.font().strikeOut(), vmgv::toBoolean(v));
             }},
        });
    return table;
  }

 private:
  using Colour = std::optional<QColor> Look::*;

  Look& look() const { return rule().look; }
  QFont font() const { return table_->view().font(); }
  QColor ofGrid(QPalette::ColorRole role) const { return table_->view().palette().color(role); }

  Value colour(Colour member, QPalette::ColorRole role) const {
    return colourNumber((look().*member).value_or(ofGrid(role)));
  }
  void setColour(Colour member, QPalette::ColorRole role, const Value& value) {
    set(member, ofGrid(role), colourOf(value));
  }
  template <class T>
  void set(std::optional<T> Look::*member, const T& ofGrid, const T& value) {
    look().*member = value == ofGrid ? std::nullopt : std::optional<T>(value);
    changed();
  }
};

class Condition final : public RulePart<Condition> {
 public:
  using RulePart::RulePart;

  static const vmgv::ClassTable<Condition>& table() {
    static const vmgv::ClassTable<Condition> table(
        "FmtCondition",
        {
            {"Name", 0, [](Condition& c, Args) -> Value { return c.name_.toStdString(); }},
            {"ColIndex", 0, [](Condition& c, Args) -> Value { return c.rule().column + 1; },
             [](Condition& c, Args, const Value& v) {
               c.set(&Rule::column, placeOf(v, c.table_->rows().columnCount()));
             }},
            {"Operator", 0, [](Condition& c, Args) -> Value { return static_cast<int>(c.rule().op); },
             [](Condition& c, Args, const Value& v) { c.set(&Rule::op, operatorOf(v)); }},
            {"Value1", 0, [](Condition& c, Args) { return operandOf(c.rule().value1); },
             [](Condition& c, Args, const Value& v) { c.set(&Rule::value1, operandOf(v)); }},
            {"Value2", 0, [](Condition& c, Args) { return operandOf(c.rule().value2); },
             [](Condition& c, Args, const Value& v) { c.set(&Rule::value2, operandOf(v)); }},
            {"FormatStyle", 0,
             [](Condition& c, Args) -> Value { return vmgv::makeObject<Style>(c.table_, c.name_); }},
        });
    return table;
  }

 private:
  static Rule::Operator operatorOf(const Value& value) {
    const int number = vmgv::toLong(value);
    if (number < Rule::Equal || number > Rule::Lacks) throw Error(ErrorNumber::InvalidCall);
    return static_cast<Rule::Operator>(number);
  }
  template <class T>
  void set(T Rule::*member, const T& value) {
    rule().*member = value;
    changed();
  }
};

class Conditions final : public TablePart<Conditions> {
 public:
  using TablePart::TablePart;

  static const vmgv::ClassTable<Conditions>& table() {
    static const vmgv::ClassTable<Conditions> table(
        "FmtConditions",
        {
            {"Count", 0, [](Conditions& c, Args) -> Value { return c.count(); }},
            {"Item", 1, [](Conditions& c, Args args) { return c.item(args[0]); }},
            {"Add", 5, [](Conditions& c, Args args) { return c.add(args); }},
            {"Remove", 1, [](Conditions& c, Args args) { return c.remove(args[0]); }},
        },
        "Item");
    return table;
  }

 private:
  std::vector<Rule>& rules() const { return table_->rows().rules; }
  int count() const { return static_cast<int>(rules().size()); }

  // By number or by name.
  Value item(const Value& key) const {
    const Rule& rule = key.isText() ? ruleOf(*table_, textOf(key))
                                    : rules()[static_cast<std::size_t>(placeOf(key, count()))];
    return vmgv::makeObject<Condition>(table_, rule.name);
  }
  // Column, operator, two operands, name. The dialog leaves the three in the middle to be written later.
  Value add(Args args) {
    const QString name = textOf(args[4]);
    for (const Rule& rule : rules()) {
      if (rule.name == name)
        throw Error(ErrorNumber::InvalidCall, "There is a condition of this name already");
    }
    Rule rule;
    rule.name = name;
    rule.column = placeOf(args[0], table_->rows().columnCount());
    rules().push_back(rule);
    const vmgv::ObjectRef made = vmgv::makeObject<Condition>(table_, name);
    if (args.has(1)) made.put("Operator", args[1]);
    if (args.has(2)) made.put("Value1", args[2]);
    if (args.has(3)) made.put("Value2", args[3]);
    table_->rows().repaint();
    return made;
  }
  Value remove(const Value& name) {
    const QString removed = ruleOf(*table_, textOf(name)).name;
    std::erase_if(rules(), [&](const Rule& rule) { return rule.name == removed; });
    table_->rows().repaint();
    return {};
  }
};

}  // namespace

vmgv::ObjectRef makeRules(const TableRef& table) { return vmgv::makeObject<Conditions>(table); }
