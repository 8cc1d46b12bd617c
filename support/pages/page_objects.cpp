#include "support/pages/page_objects.h"

#include "support/automation/class_table.h"
#include "support/automation/convert.h"

namespace vmgv {
namespace {

enum Style : std::int32_t { kBold = 1, kItalic = 2, kUnderline = 4, kStruck = 8 };

std::int32_t styleOf(const PageFont& font) noexcept {
  return (font.bold ? kBold : 0) | (font.italic ? kItalic : 0) | (font.underline ? kUnderline : 0) |
         (font.strikethrough ? kStruck : 0);
}

PageFont fontOf(const Value& family, const Value& size, std::int32_t style) {
  return {toText(family),
          toDouble(size),
          (style & kBold) != 0,
          (style & kItalic) != 0,
          (style & kUnderline) != 0,
          (style & kStruck) != 0};
}

PageRect rectOf(Args args) {
  return {toDouble(args[0]), toDouble(args[1]), toDouble(args[2]), toDouble(args[3])};
}

PageColour colourOf(const Value& value) { return static_cast<PageColour>(toLong(value)); }
std::int32_t numberOf(PageColour colour) { return static_cast<std::int32_t>(colour); }

class SurfaceObject final : public Exposed<SurfaceObject> {
 public:
  explicit SurfaceObject(PageSurface& surface) : surface_(&surface) {}

  static const ClassTable<SurfaceObject>& table() {
    using S = SurfaceObject;
    static const ClassTable<S> table(
        "PageSurface", {
                           {"FillRect", 5,
                            [](S& s, Args args) -> Value {
                              s.surface().fill(rectOf(args), colourOf(args[4]));
                              return {};
                            }},
                           {"DrawLine", 6,
                            [](S& s, Args args) -> Value {
                              s.surface().line(toDouble(args[0]), toDouble(args[1]), toDouble(args[2]),
                                               toDouble(args[3]), toDouble(args[4]), colourOf(args[5]));
                              return {};
                            }},
                           {"DrawText", 7,
                            [](S& s, Args args) -> Value {
                              s.surface().text(toDouble(args[0]), toDouble(args[1]), toText(args[2]),
                                               fontOf(args[3], args[4], toLong(args[5])), colourOf(args[6]));
                              return {};
                            }},
                           {"SetClip", 4,
                            [](S& s, Args args) -> Value {
                              s.surface().clip(rectOf(args));
                              return {};
                            }},
                           {"ResetClip", 0,
                            [](S& s, Args) -> Value {
                              s.surface().unclip();
                              return {};
                            }},
                       });
    return table;
  }

  PageSurface& surface() const {
    if (!surface_) throw Error(ErrorNumber::ObjectNotSet);
    return *surface_;
  }
  void forget() noexcept { surface_ = nullptr; }

 private:
  PageSurface* surface_;
};

// Draws by late-bound calls.
class FarSurface final : public PageSurface {
 public:
  explicit FarSurface(ObjectRef object) : object_(std::move(object)) {}

  void fill(const PageRect& rect, PageColour colour) override {
    object_.call(fillRect_, rect.left, rect.top, rect.width, rect.height, numberOf(colour));
  }
  void line(double x1, double y1, double x2, double y2, double width, PageColour colour) override {
    object_.call(drawLine_, x1, y1, x2, y2, width, numberOf(colour));
  }
  void text(double x, double baseline, std::string_view text, const PageFont& font,
            PageColour colour) override {
    object_.call(drawText_, x, baseline, std::string(text), font.family, font.size, styleOf(font),
                 numberOf(colour));
  }
  void clip(const PageRect& rect) override {
    object_.call(setClip_, rect.left, rect.top, rect.width, rect.height);
  }
  void unclip() override { object_.call(resetClip_); }

 private:
  ObjectRef object_;
  Member fillRect_ = "FillRect", drawLine_ = "DrawLine", drawText_ = "DrawText", setClip_ = "SetClip",
         resetClip_ = "ResetClip";
};

class PagesObject final : public Exposed<PagesObject> {
 public:
  explicit PagesObject(std::shared_ptr<PageSource> pages) : pages_(std::move(pages)) {}

  static const ClassTable<PagesObject>& table() {
    using P = PagesObject;
    static const ClassTable<P> table(
        "Pages", {
                     {"PageCount", 0, [](P& p, Args) -> Value { return p.pages_->count(); }},
                     {"PageWidth", 0, [](P& p, Args) -> Value { return p.pages_->paper().width; }},
                     {"PageHeight", 0, [](P& p, Args) -> Value { return p.pages_->paper().height; }},
                     {"DrawPage", 2,
                      [](P& p, Args args) -> Value {
                        p.draw(toLong(args[0]), args[1].object());
                        return {};
                      }},
                     {"SetUp", 0,
                      [](P& p, Args) -> Value {
                        p.pages_->setUp();
                        return {};
                      }},
                     {"Print", 1,
                      [](P& p, Args args) -> Value {
                        p.pages_->print(toBoolean(args[0]));
                        return {};
                      }},
                 });
    return table;
  }

  const std::shared_ptr<PageSource>& pages() const noexcept { return pages_; }

 private:
  void draw(std::int32_t page, const ObjectRef& on) {
    if (const auto* own = dynamic_cast<const SurfaceObject*>(on.get())) {
      pages_->draw(page, own->surface());
    } else {
      FarSurface surface(on);
      pages_->draw(page, surface);
    }
  }

  std::shared_ptr<PageSource> pages_;
};

// Asks late-bound.
class FarPages final : public PageSource {
 public:
  explicit FarPages(ObjectRef object) : object_(std::move(object)) {}

  std::int32_t count() override { return toLong(object_.get("PageCount")); }
  PageSize paper() override {
    return {toDouble(object_.get("PageWidth")), toDouble(object_.get("PageHeight"))};
  }
  void draw(std::int32_t page, PageSurface& surface) override {
    const ObjectRef object = makeObject<SurfaceObject>(surface);
    struct Forget {
      SurfaceObject& object;
      ~Forget() { object.forget(); }
    } const forget{static_cast<SurfaceObject&>(*object)};
    object_.call(drawPage_, page, object);
  }
  void setUp() override { object_.call("SetUp"); }
  void print(bool showDialog) override { object_.call("Print", showDialog); }

 private:
  ObjectRef object_;
  Member drawPage_ = "DrawPage";
};

}  // namespace

ObjectRef objectOf(std::shared_ptr<PageSource> pages) { return makeObject<PagesObject>(std::move(pages)); }

std::shared_ptr<PageSource> pagesOf(const ObjectRef& object) {
  if (const auto* own = dynamic_cast<const PagesObject*>(object.get())) return own->pages();
  return std::make_shared<FarPages>(object);
}

}  // namespace vmgv
