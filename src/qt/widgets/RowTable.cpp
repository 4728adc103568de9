#include "qt/widgets/RowTable.h"

#include <QHeaderView>
#include <algorithm>
#include <utility>

#include "forms/shared/Palette.h"
#include "qt/services/Convert.h"
#include "qt/windows/FormWindow.h"

namespace vardel {

void RowModel::Renew() {
    beginResetModel();
    seen_.clear();
    shown_ = static_cast<int>(list_.Count());
    endResetModel();
}

void RowModel::Refresh() {
    seen_.clear();
    if (shown_ > 0) emit dataChanged(index(0, 0), index(shown_ - 1, columnCount({}) - 1));
}

int RowModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : shown_; }

int RowModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(list_.Columns().size());
}

const RowList::Row& RowModel::RowAt(int row) const {
    if (seen_.object(row) == nullptr)
        seen_.insert(row, new RowList::Row(list_.RowAt(static_cast<std::size_t>(row))));
    return *seen_.object(row);
}

QVariant RowModel::data(const QModelIndex& index, int role) const {
    const auto column = static_cast<std::size_t>(index.column());
    switch (role) {
        case Qt::DisplayRole:
            return ToQt(RowAt(index.row()).cells.at(column));
        case Qt::TextAlignmentRole:
            return static_cast<int>(
                Qt::AlignVCenter |
                (list_.Columns()[column].number ? Qt::AlignRight : Qt::AlignLeft));
        case Qt::ToolTipRole:
        case Qt::AccessibleDescriptionRole:
            return ToQt(RowAt(index.row()).remark);
        case Qt::FontRole: {
            QFont font;
            font.setStrikeOut(RowAt(index.row()).struck);
            return font;
        }
        case Qt::BackgroundRole:
            if (RowAt(index.row()).marked) return ToQt(OutOfRangePink);
            return {};
        case Qt::ForegroundRole:
            if (RowAt(index.row()).marked) return ToQt(Black);
            return {};
        default:
            return {};
    }
}

QVariant RowModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return ToQt(list_.Columns().at(static_cast<std::size_t>(section)).title);
}

RowTable::RowTable(RowList& list, Binder& binder, const QString& name) : list_(list), model_(list) {
    setObjectName(ToQt(list.Name()));
    setAccessibleName(name);
    setModel(&model_);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setTabKeyNavigation(false);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setShowGrid(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    QHeaderView& heads = *horizontalHeader();
    heads.setSectionsClickable(true);
    heads.setSortIndicatorShown(std::any_of(list.Columns().begin(), list.Columns().end(),
                                            [](const auto& column) { return column.sorts; }));
    heads.setHighlightSections(false);
    heads.setStretchLastSection(true);
    for (std::size_t i = 0; i < list.Columns().size(); ++i)
        setColumnWidth(static_cast<int>(i), WidthOf(*this, list.Columns()[i].characters + 3));
    connect(&heads, &QHeaderView::sectionClicked, this, [this](int column) { SortBy(column); });
    connect(this, &QTableView::activated, this, [this] { list_.DblClick.Raise(); });
    binder.Show(list, [this] { ShowList(); });
    showing_ = false;
}

void RowTable::SortBy(int column) {
    list_.SetSort(column, column == list_.SortColumn() && !list_.SortsDescending());
    ShowList();
}

void RowTable::ShowList() {
    const bool nested = std::exchange(showing_, true);
    if (changes_ != list_.Changes()) {
        changes_ = list_.Changes();
        if (list_.Selected() && model_.rowCount({}) == static_cast<int>(list_.Count()))
            model_.Refresh();
        else
            model_.Renew();
    }
    horizontalHeader()->setSortIndicator(
        list_.SortColumn(), list_.SortsDescending() ? Qt::DescendingOrder : Qt::AscendingOrder);
    const int row = list_.Selected() ? static_cast<int>(*list_.Selected()) : -1;
    if (row < 0)
        clearSelection();
    else if (currentIndex().row() != row || !selectionModel()->isRowSelected(row))
        selectRow(row);
    showing_ = nested;
}

void RowTable::selectionChanged(const QItemSelection& selected, const QItemSelection& before) {
    QTableView::selectionChanged(selected, before);
    if (showing_) return;
    const QModelIndexList rows = selectionModel()->selectedRows();
    list_.Select(rows.isEmpty() ? std::nullopt
                                : std::optional(static_cast<std::size_t>(rows.front().row())));
}

}  // namespace vardel
