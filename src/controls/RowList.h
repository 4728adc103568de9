#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "controls/Controls.h"

namespace vardel {

// A table of rows that lie elsewhere and are asked for when they are to be seen. One row may be
// selected, and a column that can be sorted by is chosen by its head.
class RowList : public Control {
public:
    struct Column {
        std::string title;
        int characters;  // that are usually in it
        bool sorts = true;
        bool number = false;  // set to the right
    };
    struct Row {
        std::vector<std::string> cells;
        bool struck = false;  // shown as taken out
        bool marked = false;  // shown as faulty
        std::string remark = {};
    };

    RowList(Form& form, std::string name, std::vector<Column> columns);

    const std::vector<Column>& Columns() const { return columns_; }
    std::size_t Count() const { return count_; }
    Row RowAt(std::size_t index) const { return rowAt_(index); }
    // Other rows than before, with none selected.
    void SetRows(std::size_t count, std::function<Row(std::size_t)> rowAt);
    // The same rows, of which some look different now.
    void Refresh() { Assign(changes_, changes_ + 1); }
    // Grows with every change of what rows look like.
    int Changes() const { return changes_; }

    std::optional<std::size_t> Selected() const { return selected_; }
    void Select(std::optional<std::size_t> index);
    int SortColumn() const { return sortColumn_; }
    bool SortsDescending() const { return descending_; }
    void SetSort(int column, bool descending);

    Event SelectionChange;
    Event SortChange;
    Event DblClick;  // on the row that is selected

private:
    std::vector<Column> columns_;
    std::size_t count_ = 0;
    std::function<Row(std::size_t)> rowAt_;
    int changes_ = 0;
    std::optional<std::size_t> selected_;
    int sortColumn_ = 0;
    bool descending_ = false;
};

}  // namespace vardel
