#pragma once

#include <QMap>
#include <QObject>
#include <QPoint>
#include <QStringList>
#include <QWidget>
#include <random>

namespace vardel {

// Does anything that a user can do, at random but the same for the same seed: clicks and drags what
// is enabled, turns the wheel, types numbers and nonsense, picks from menus, drops files, answers
// dialogs. Goes on inside whatever
// waits for the user, and through the yields of a run.
class RandomUser : public QObject {
public:
    // Files are named in this folder and nowhere else.
    RandomUser(unsigned seed, int actions, QString folder);

    // Until the program has ended or all actions are done; these leave the program running no more.
    void Use();
    bool HasActionsLeft() const { return actionsLeft_ > 0; }
    // In how many actions each window and kind of dialog was used.
    const QMap<QString, int>& Used() const { return used_; }
    // What was seen that should never be.
    const QStringList& Faults() const { return faults_; }

private:
    void ScheduleStep();
    void Step();
    void Act();
    void CloseEverything();
    void CheckIdle();
    void ActOnPopup(QWidget& popup);
    void ActOnDialog(QWidget& dialog);
    void ActOnWindow(QWidget& window);
    void PickFromMenus(QWidget& window);
    void UseWidget(QWidget& widget);

    void UseMouse(QWidget& ground);
    void Wheel(QWidget& ground);
    void DropFile(QWidget& window);

    int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
    template <class List>
    auto AnyOf(const List& list) {
        return list[Below(static_cast<int>(std::size(list)))];
    }
    QPoint AnyPoint(const QWidget& ground);
    QString AnyText();
    QString AnyFile();

    std::mt19937 random_;
    int actionsLeft_;
    int depth_ = 0;  // actions that have not returned yet
    QString folder_;
    QMap<QString, int> used_;
    QStringList faults_;
};

}  // namespace vardel
