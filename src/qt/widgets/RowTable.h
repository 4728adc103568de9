#pragma once

#include <QAbstractTableModel>
#include <QCache>
#include <QTableView>

#include "controls/RowList.h"
#include "qt/binder/Binder.h"

namespace vardel {

// The rows of a list as Qt's views ask for them. Those last seen are kept.
class RowModel : public QAbstractTableModel {
public:
    explicit RowModel(const RowList& list) : list_(list) {}

    void Renew();    // other rows
    void Refresh();  // other looks of the same

    int rowCount(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    const RowList::Row& RowAt(int row) const;

    const RowList& list_;
    int shown_ = 0;  // rows
    mutable QCache<int, RowList::Row> seen_{500};
};

// A row list on the screen.
class RowTable : public QTableView {
public:
    RowTable(RowList& list, Binder& binder, const QString& name);

protected:
    void selectionChanged(const QItemSelection& selected, const QItemSelection& before) override;

private:
    void ShowList();
    void SortBy(int column);

    RowList& list_;
    RowModel model_;
    int changes_ = -1;     // of the list, as it is shown
    bool showing_ = true;  // until the list is shown, what the view selects is not the user's
};

}  // namespace vardel
