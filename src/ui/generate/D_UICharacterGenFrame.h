#pragma once

#include "FCReleaser.h"

#include <QWidget>

class DCharacter;
class DTable;
class QCheckBox;
class QComboBox;
class QPushButton;
class QSpinBox;
class QTabWidget;
class QTextBrowser;
class QTreeWidget;
class QTreeWidgetItem;

// Quick non-player characters: race, class, alignment and level fixed or drawn from the
// "Random NPC" tables. A list row is only a request with a count; a character is built each
// time a row is decoded, for the stat block or for the editor.
class D_UICharacterGenFrame : public QWidget {
    Q_OBJECT
    Q_MOC_INCLUDE("DCharacter.h")
public:
    explicit D_UICharacterGenFrame(QWidget* parent = nullptr);

    enum Column {
        kColumnRace = 0,
        kColumnClass = 1,
        kColumnAlignment = 2,
        kColumnLevel = 3,
        kColumnNumber = 4,
    };

    // "Good" if the name holds "Good", else "Evil" if it holds "Evil", else "Neutral".
    static QString AlignmentGroup(const QString& alignment);
    // Shows the stat blocks of every row, built anew.
    void ShowStatBlockTab();

public slots:
    // Adds one request to the list, or counts up the equal one.
    void Generate();
    // Builds the selected row and hands it on by a signal.
    void Jump();

signals:
    // A character built from a row; retain it to keep it.
    void characterBuilt(DCharacter* character, const QString& title);

protected:
    // The text of the first row that covers one roll of the table, following nested tables;
    // empty for a missing table, no covering row or a chain deeper than 32.
    static QString Generate(const DTable* table, int depth);
    // The character a row asks for; null with `error` set when it cannot be had.
    FCRef<DCharacter> decodeItem(const QTreeWidgetItem* row, QString& error) const;

private slots:
    void itemSelected();
    void tabSelected(int index);
    void randomClassCheck(bool on);
    void randomRaceCheck(bool on);
    void randomAlignmentCheck(bool on);

private:
    void FillFields();
    void UpdateStatblock();
    // The pick from the ready table of that name; empty if the table is missing.
    static QString Pick(const QString& tableName);
    // A random alignment of the group that the class allows, drawn again from the group's table
    // while the class refuses it: a paladin drawn among the good is lawful good.
    QString FitAlignment(const QString& group, QString alignment, const QString& className) const;

    QComboBox* mClassCombo = nullptr;
    QComboBox* mRaceCombo = nullptr;
    QComboBox* mAlignmentCombo = nullptr;
    QSpinBox* mLevel = nullptr;
    QCheckBox* mRandomClass = nullptr;
    QCheckBox* mRandomRace = nullptr;
    QCheckBox* mRandomAlignment = nullptr;
    QCheckBox* mAppendBox = nullptr;
    QPushButton* mGenerateButton = nullptr;
    QPushButton* mJumpButton = nullptr;
    QPushButton* mCloseButton = nullptr;
    QTreeWidget* mList = nullptr;
    QTabWidget* mMainTabs = nullptr;
    QTextBrowser* mBlock = nullptr;
};
