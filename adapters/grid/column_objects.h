// The grid's columns as late-bound objects.
#pragma once

#include <vector>

#include "adapters/grid/grid_part.h"

namespace vmgv {

class ColumnsObject final : public GridPart<ColumnsObject> {
 public:
  using GridPart::GridPart;
  static const ClassTable<ColumnsObject>& table();
  std::unique_ptr<Enumeration> enumerate() override { return std::make_unique<ItemEnumeration>(this); }

 private:
  // Clients ask for a column at every cell, so its object is made once.
  Value item(std::int32_t index);

  std::vector<ObjectRef> columns_;
};

class ColumnObject final : public GridPart<ColumnObject> {
 public:
  ColumnObject(EngineRef engine, std::int32_t index) : GridPart(std::move(engine)), index_(index) {}
  static const ClassTable<ColumnObject>& table();

 private:
  const GridColumn& column() const { return engine_->column(index_); }

  std::int32_t index_;
};

}  // namespace vmgv
