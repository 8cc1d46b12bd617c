// The JSON picture of a form, for tests and scripts.
#include "support/forms/form.h"
#include "support/text/json.h"

namespace vmgv {
namespace {

void writeRect(JsonWriter& json, const Rect& rect) {
  json.key("left").number(static_cast<long long>(rect.left));
  json.key("top").number(static_cast<long long>(rect.top));
  json.key("width").number(static_cast<long long>(rect.width));
  json.key("height").number(static_cast<long long>(rect.height));
}

void writeFont(JsonWriter& json, const Font& font) {
  json.key("font").beginObject();
  json.key("name").string(font.name);
  json.key("size").number(font.size);
  json.key("charset").number(static_cast<long long>(font.charset));
  json.endObject();
}

}  // namespace

std::string dump(const Form& form) {
  JsonWriter json;
  json.beginObject();
  json.key("name").string(form.name());
  json.key("caption").string(form.caption());
  json.key("pointer").number(static_cast<long long>(form.pointer()));
  writeFont(json, form.font());
  writeRect(json, {0, 0, form.size().width, form.size().height});
  json.key("controls").beginArray();
  for (const auto& control : form.controls()) {
    json.beginObject();
    json.key("name").string(control->address());
    json.key("kind").string(control->typeName());
    if (control->container()) json.key("container").string(control->container()->address());
    for (const auto& [name, value] : control->properties()) json.key(name).value(value);
    if (const auto* list = dynamic_cast<const ListControl*>(control.get())) {
      json.key("items").beginArray();
      for (const std::string& item : list->items()) json.string(item);
      json.endArray();
    }
    if (const auto* menu = dynamic_cast<const Menu*>(control.get())) {
      json.key("items").beginArray();
      for (const Menu::Item& item : menu->items()) json.string(item.caption);
      json.endArray();
    }
    writeFont(json, control->font());
    writeRect(json, control->rect());
    json.endObject();
  }
  json.endArray().endObject();
  return json.text();
}

}  // namespace vmgv
