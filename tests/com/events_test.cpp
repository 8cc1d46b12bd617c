// Events over the border, in both directions.
#include <olectl.h>

#include "frontends/com/text.h"
#include "support/automation/events.h"
#include "tests/com/things.h"

namespace vmgv::test {
namespace {

// Raises what a test wants.
class Raiser final : public Exposed<Raiser> {
 public:
  static const ClassTable<Raiser>& table() {
    static const ClassTable<Raiser> table("Raiser", {});
    return table;
  }
  std::shared_ptr<void> listen(EventSink& sink) override { return events.connect(sink); }
  void page(std::int32_t page, std::int32_t pages) {
    const Value parameters[] = {page, pages};
    events.raise("BeforePrintPage", parameters);
  }

  EventSource events;
};

struct Ear final : EventSink {
  void raised(std::string_view event, std::span<const Value> parameters) override {
    heard.append(event).append("(");
    for (const Value& value : parameters) heard.append(toText(value)).append(";");
    heard.append(") ");
    if (then) then();
  }
  std::string heard;
  std::function<void()> then;
};

// The object as another module sees it: what is told here is no exposure of this one.
class Foreign final : public ComObject<IDispatch> {
 public:
  explicit Foreign(ComPtr<IDispatch> inner) : inner_(std::move(inner)) {}
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    return SUCCEEDED(ComObject::QueryInterface(iid, out)) ? S_OK : inner_->QueryInterface(iid, out);
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override { return inner_->GetTypeInfoCount(count); }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT which, LCID locale, ITypeInfo** info) override {
    return inner_->GetTypeInfo(which, locale, info);
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override {
    return inner_->GetIDsOfNames(iid, names, count, locale, ids);
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* exception, UINT* argument) override {
    return inner_->Invoke(id, iid, locale, flags, parameters, result, exception, argument);
  }

 private:
  ComPtr<IDispatch> inner_;
};

class EventsTest : public testing::Test {
 protected:
  Raiser& raiser = *new Raiser;
  ObjectRef object{&raiser};
  ObjectRef host = wrapDispatch(makeComObject<Foreign>(exposeObject(object)).get());
  Ear ear;
};

TEST_F(EventsTest, AreHeardByNameUntilTheConnectionIsDropped) {
  const long before = livingComObjects();
  std::shared_ptr<void> listening = (*host).listen(ear);
  ASSERT_TRUE(listening);
  raiser.page(3, 10);
  raiser.events.raise("Unheard", {});
  EXPECT_EQ(ear.heard, "BeforePrintPage(3;10;) ");
  ear.then = [&] { listening.reset(); };  // while it hears
  raiser.page(4, 10);
  raiser.page(5, 10);
  EXPECT_EQ(ear.heard, "BeforePrintPage(3;10;) BeforePrintPage(4;10;) ");
  EXPECT_EQ(before, livingComObjects());
}

TEST_F(EventsTest, AListenersFailureReachesWhoRaised) {
  const std::shared_ptr<void> listening = (*host).listen(ear);
  ear.then = [] { throw Error(71, "No paper"); };
  EXPECT_EQ(errorOfStep([&] { raiser.page(1, 2); }), "71: No paper");
}

TEST_F(EventsTest, ObjectsThatRaiseNoneHaveNoConnectionPoints) {
  const ComPtr<IDispatch> thing = exposeObject(makeObject<Thing>());
  EXPECT_FALSE(thing.as<IConnectionPointContainer>());
  EXPECT_FALSE(thing.as<IProvideClassInfo>());
  EXPECT_EQ((*wrapDispatch(makeComObject<FakeHost>().get())).listen(ear), nullptr);
  EXPECT_EQ((*createAutomationObject("Scripting.Dictionary")).listen(ear), nullptr);
}

}  // namespace
}  // namespace vmgv::test
