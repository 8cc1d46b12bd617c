// Core objects for the border to carry, and a host's object that answers as a test says.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "frontends/com/bridge.h"
#include "frontends/com/com_object.h"
#include "frontends/com/variant.h"
#include "support/automation/class_table.h"
#include "support/automation/convert.h"

namespace vmgv::test {

// Keeps a value; is a collection of three numbers.
class Thing final : public Exposed<Thing> {
 public:
  static const ClassTable<Thing>& table() {
    static const ClassTable<Thing> table(
        "Thing",
        {
            {"Value", 0, [](Thing& t, Args) { return t.value; },
             [](Thing& t, Args, const Value& v) { t.value = v; }},
            {"Sum", 6,
             [](Thing&, Args args) -> Value {
               double sum = 0;
               for (std::size_t i = 0; i < args.size(); ++i) sum = sum * 10 + toDouble(args[i]);
               return sum;
             }},
            {"Echo", 1, [](Thing&, Args args) { return args[0]; }},
            {"Fail", 2, [](Thing&, Args args) -> Value { throw Error(toLong(args[0]), toText(args[1])); }},
        },
        "Value");
    return table;
  }
  std::unique_ptr<Enumeration> enumerate() override {
    struct Three final : Enumeration {
      std::int32_t last = 0;
      bool next(Value& item) override { return last < 3 && (item = ++last, true); }
    };
    return std::make_unique<Three>();
  }

  Value value;
};

// Every name has the number 7; a test answers the calls.
class FakeHost : public ComObject<IDispatch> {
 public:
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override { return *count = 0, S_OK; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* ids) override {
    return *ids = 7, S_OK;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result,
                                   EXCEPINFO* exception, UINT*) override {
    calls.push_back(flags);
    return answer ? answer(result, exception) : S_OK;
  }

  std::vector<WORD> calls;  // the flags of each
  std::function<HRESULT(VARIANT*, EXCEPINFO*)> answer;
};

// What an object tells about a call that failed.
struct Exception : EXCEPINFO {
  Exception() : EXCEPINFO{} {}
  ~Exception() {
    for (const BSTR text : {bstrSource, bstrDescription, bstrHelpFile}) SysFreeString(text);
  }
};

// The error that a step throws, as "number: description"; "" where it throws none.
inline std::string errorOfStep(const std::function<void()>& step) {
  try {
    step();
    return {};
  } catch (const Error& error) {
    return std::to_string(error.number()) + ": " + error.description();
  }
}

}  // namespace vmgv::test
