#include "adapters/grid/setting_objects.h"

namespace vmgv {
namespace {

class FontObject final : public GridPart<FontObject> {
 public:
  using GridPart::GridPart;
  static const ClassTable<FontObject>& table() {
    using F = FontObject;
    static const ClassTable<F> table(
        "Font",
        {
            {"Name", 0, [](F& f, Args) -> Value { return f.font().name; },
             [](F& f, Args, const Value& v) { f.set(&GridFont::name, toText(v)); }},
            {"Size", 0, [](F& f, Args) -> Value { return f.font().size; },
             [](F& f, Args, const Value& v) { f.set(&GridFont::size, checkedFontSize(v)); }},
            {"Bold", 0, [](F& f, Args) -> Value { return f.font().bold; },
             [](F& f, Args, const Value& v) { f.set(&GridFont::bold, toBoolean(v)); }},
            {"Italic", 0, [](F& f, Args) -> Value { return f.font().italic; },
             [](F& f, Args, const Value& v) { f.set(&GridFont::italic, toBoolean(v)); }},
            {"Underline", 0, [](F& f, Args) -> Value { return f.font().underline; },
             [](F& f, Args, const Value& v) { f.set(&GridFont::underline, toBoolean(v)); }},
            {"Strikethrough", 0, [](F& f, Args) -> Value { return f.font().strikethrough; },
             [](F& f, Args, const Value& v) { f.set(&GridFont::strikethrough, toBoolean(v)); }},
        },
        "Name");
    return table;
  }

 private:
  const GridFont& font() const { return engine_->settings().font; }
  template <class T>
  void set(T GridFont::*member, T value) {
    engine_->changeSettings([&](GridSettings& settings) { settings.font.*member = std::move(value); });
  }
};

constexpr double kLongestPaper = 14400;  // what a PDF page can be, 200 inches

class PrinterObject final : public GridPart<PrinterObject> {
 public:
  using GridPart::GridPart;
  static const ClassTable<PrinterObject>& table() {
    using P = PrinterObject;
    static const ClassTable<P> table(
        "PrinterProperties",
        {
            {"HeaderString", 1, [](P& p, Args args) -> Value { return at(p.printer().header, args[0]); },
             [](P& p, Args args, const Value& v) { at(p.printer().header, args[0]) = toText(v); }},
            {"FooterString", 1, [](P& p, Args args) -> Value { return at(p.printer().footer, args[0]); },
             [](P& p, Args args, const Value& v) { at(p.printer().footer, args[0]) = toText(v); }},
            {"TranslateColors", 0, [](P& p, Args) -> Value { return p.printer().translateColors; },
             [](P& p, Args, const Value& v) { p.printer().translateColors = toBoolean(v); }},
            {"RepeatHeaders", 0, [](P& p, Args) -> Value { return p.printer().repeatHeaders; },
             [](P& p, Args, const Value& v) { p.printer().repeatHeaders = toBoolean(v); }},
            {"PaperWidth", 0, [](P& p, Args) -> Value { return p.setup().paper.width; },
             [](P& p, Args, const Value& v) { p.setup().paper.width = length(v); }},
            {"PaperHeight", 0, [](P& p, Args) -> Value { return p.setup().paper.height; },
             [](P& p, Args, const Value& v) { p.setup().paper.height = length(v); }},
            {"LeftMargin", 0, [](P& p, Args) -> Value { return p.setup().left; },
             [](P& p, Args, const Value& v) { p.setup().left = length(v); }},
            {"TopMargin", 0, [](P& p, Args) -> Value { return p.setup().top; },
             [](P& p, Args, const Value& v) { p.setup().top = length(v); }},
            {"RightMargin", 0, [](P& p, Args) -> Value { return p.setup().right; },
             [](P& p, Args, const Value& v) { p.setup().right = length(v); }},
            {"BottomMargin", 0, [](P& p, Args) -> Value { return p.setup().bottom; },
             [](P& p, Args, const Value& v) { p.setup().bottom = length(v); }},
        });
    return table;
  }

 private:
  PrinterProperties& printer() { return engine_->printer(); }
  PageSetup& setup() { return printer().setup; }
  static double length(const Value& points) {
    const double length = toDouble(points);
    if (length >= 0 && length <= kLongestPaper) return length;
    throw Error(ErrorNumber::InvalidCall, "Paper and its margins cannot have " + toText(points) + " points");
  }
  static std::string& at(std::array<std::string, 3>& texts, const Value& position) {
    return texts[placeOf(position, texts.size(), "the page's header or footer")];
  }
};

}  // namespace

ObjectRef makeFontObject(EngineRef engine) { return makeObject<FontObject>(std::move(engine)); }

ObjectRef makePrinterObject(EngineRef engine) { return makeObject<PrinterObject>(std::move(engine)); }

}  // namespace vmgv
