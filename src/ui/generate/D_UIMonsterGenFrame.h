#pragma once

#include <QWidget>

class DCharacter;
class DFileObject;
class QLabel;
class QPushButton;
class QSpinBox;
class QTabWidget;
class QTextBrowser;
class QTreeWidget;
class QTreeWidgetItem;

// A browser over the ready monsters (the races that are not player races), grouped by the part
// of the name before a comma, with the hit dice a monster that advances is shown at and its
// stat block.
class D_UIMonsterGenFrame : public QWidget {
    Q_OBJECT
    Q_MOC_INCLUDE("DCharacter.h")
public:
    explicit D_UIMonsterGenFrame(QWidget* parent = nullptr);

    // Selects the monster of that race name; false if there is none.
    bool SelectMonster(const QString& name);
    void ShowStatBlockTab();

public slots:
    // Builds the selected monster at the advancement shown and hands it on by a signal.
    void Jump();

signals:
    // A monster built from the list; retain it to keep it.
    void monsterBuilt(DCharacter* character, const QString& title);

protected:
    void Setup();
    void FillList();
    void UpdateStatblock();

private slots:
    void itemSelected();
    void tabSelected(int index);

private:
    DFileObject* SelectedRace() const;
    void ShowAdvancement(bool shown);

    QTreeWidget* mList = nullptr;
    QSpinBox* mAdvance = nullptr;
    QLabel* LabelAdvance = nullptr;
    QLabel* LabelHD = nullptr;
    QTabWidget* mMainTabs = nullptr;
    QTextBrowser* mBlock = nullptr;
    QPushButton* mJumpButton = nullptr;
    QPushButton* mCloseButton = nullptr;
};
