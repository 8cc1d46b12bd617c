// The control as hosts use it: members, defaults, persistence, size, and dialogs without a grid.
#include "support/fonts/standard_font.h"
#include "tests/dialogs/fixture.h"

namespace vmgv {
namespace {

class Container final : public ControlSite, public PropertyBag {
 public:
  ObjectRef ambientFont() override { return ambient; }
  void propertyChanged(std::string_view property) override { changed.emplace_back(property); }
  Size pixel() const override { return {10, 20}; }
  void setSize(Size s) override { size = s; }
  Value read(std::string_view property, const Value& defaultValue) override {
    const auto found = stored.find(std::string(property));
    return found == stored.end() ? defaultValue : found->second;
  }
  void write(std::string_view property, const Value& value, const Value& defaultValue) override {
    if (!(value == defaultValue)) stored[std::string(property)] = value;
  }

  ObjectRef ambient = makeObject<StandardFont>(Font{.name = "Ambient", .size = 8.25});
  std::vector<std::string> changed;
  std::map<std::string, Value> stored;
  Size size;
};

TEST(Control, StateAndDefaults) {
  DialogFixture f;
  const ObjectRef control = makeObject<vmgrEdit>(f.application);
  EXPECT_EQ(control.get("Grid"), Value(ObjectRef()));
  EXPECT_EQ(control.get("CurrentView"), Value(""));
  EXPECT_EQ(control.get("excelVisible"), Value(true));
  control.put("excelVisible", 0);
  control.put("CurrentView", "Monthly");
  control.putRef("CurrentCatalog", control);
  EXPECT_EQ(control.get("EXCELVISIBLE"), Value(false));
  EXPECT_EQ(control.get("CurrentView"), Value("Monthly"));
  EXPECT_EQ(control.get("CurrentCatalog"), Value(control));
  EXPECT_THROW(control.putRef("Grid", 5), Error);
  control.putRef("CurrentCatalog", ObjectRef());  // the cycle ends here
}

TEST(Control, FontIsAmbientUntilSetAndAloneIsKept) {
  DialogFixture f;
  Container container;
  auto* control = new vmgrEdit(f.application, &container);
  const ObjectRef held(control);
  EXPECT_EQ(control->Font(), container.ambient);
  EXPECT_EQ(control->Font().get("Size"), Value(Currency{82500}));
  control->WriteProperties(container);
  EXPECT_TRUE(container.stored.empty());  // the ambient font is not stored
  held.putRef("Font", makeObject<StandardFont>(Font{.name = "Own"}));
  EXPECT_EQ(container.changed, std::vector<std::string>{"Font"});
  control->setExcelVisible(false);
  control->WriteProperties(container);
  EXPECT_EQ(container.stored.size(), 1u);

  auto* reloaded = new vmgrEdit(f.application, &container);
  const ObjectRef heldToo(reloaded);
  reloaded->ReadProperties(container);
  EXPECT_EQ(reloaded->Font().get("Name"), Value("Own"));
  EXPECT_TRUE(reloaded->excelVisible());
  reloaded->Resize();
  EXPECT_EQ(container.size, (Size{160, 320}));
}

TEST(Control, ShowMethodsAnswerFalseWhateverHappens) {
  DialogFixture f;
  f.control.putRef("Grid", ObjectRef());
  // A dialog without a grid opens empty; the user closes it.
  for (const char* method :
       {"ShowSummary", "ShowSort", "ShowOther", "ShowItems", "ShowGroups", "ShowExcel", "ShowGeneral"}) {
    EXPECT_EQ(f.control.call(method), Value(false)) << method;
  }
  EXPECT_TRUE(f.messages().empty());
  // The preview tells its user.
  EXPECT_EQ(f.control.call("ShowPreviewX", "Sales", true, Missing{}), Value(false));
  EXPECT_EQ(f.control.call("ShowPreview", Missing{}, Missing{}), Value(false));
  EXPECT_EQ(f.messages(), std::vector<std::string>(2, Error(ErrorNumber::ObjectNotSet).description()));
  // The one method that tells its host.
  EXPECT_THROW(f.control.call("ShowFormat"), Error);
}

TEST(Control, ADialogThatIsOpenDoesNotOpenAgain) {
  DialogFixture f(gridOfColumns(1));
  f.show("ShowSort", {[&] {
                        const Form* open = f.desktop.form();
                        EXPECT_EQ(f.control.call("ShowSort"), Value(false));  // a timer of the host, say
                        EXPECT_EQ(f.desktop.form(), open);
                      },
                      f.click("cmdOK")});
  EXPECT_EQ(f.grid.log.size(), 3u);
}

TEST(Control, ReleasesGridAndItselfAfterADialog) {
  DialogFixture f(gridOfColumns(2));
  const ObjectRef grid = f.grid.object();
  f.control.putRef("Grid", grid);
  f.show("ShowSort", {f.click("cmdOK")});
  f.show("ShowExcel", {f.click("cmdCancel")});
  EXPECT_EQ((*grid).references(), 2);  // ours and the control's
  EXPECT_EQ((*f.control).references(), 1);
}

}  // namespace
}  // namespace vmgv
