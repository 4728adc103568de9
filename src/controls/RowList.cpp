#include "controls/RowList.h"

namespace vardel {

RowList::RowList(Form& form, std::string name, std::vector<Column> columns)
    : Control(form, std::move(name)),
      SelectionChange(form),
      SortChange(form),
      DblClick(form),
      columns_(std::move(columns)) {}

void RowList::SetRows(std::size_t count, std::function<Row(std::size_t)> rowAt) {
    count_ = count;
    rowAt_ = std::move(rowAt);
    const bool hadSelection = selected_.has_value();
    selected_.reset();
    Refresh();
    if (hadSelection) SelectionChange.Raise();
}

void RowList::Select(std::optional<std::size_t> index) {
    if (index && *index >= count_) return;
    if (Assign(selected_, index)) SelectionChange.Raise();
}

void RowList::SetSort(int column, bool descending) {
    if (column < 0 || column >= static_cast<int>(columns_.size()) ||
        !columns_[static_cast<std::size_t>(column)].sorts)
        return;
    const bool changed = column != sortColumn_ || descending != descending_;
    sortColumn_ = column;
    if (Assign(descending_, descending) || changed) SortChange.Raise();
}

}  // namespace vardel
