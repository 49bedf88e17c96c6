#pragma once

#include <QString>

class DCharacter;
class QWidget;

// Print, print preview and export of the character shown, through the output pipeline: a
// style sheet of the character's kind makes HTML that Qt's rich text lays out on pages.
class DeskPrinting {
public:
    DeskPrinting() = delete;

    // The stat block for the character view's tab; an error text in place of it on failure.
    static QString StatBlockHtml(DCharacter* character);
    static void Print(QWidget* parent, DCharacter* character);
    // With an empty `style` the user is asked for one.
    static void PrintPreview(QWidget* parent, DCharacter* character,
                             const QString& style = QString());
    static void Export(QWidget* parent, DCharacter* character);

private:
    // The style the user picks for the kind; empty when cancelled.
    static QString ChooseStyle(QWidget* parent, DCharacter* character, const QString& preferred);
    // False after a message.
    static bool RenderHtml(QWidget* parent, DCharacter* character, const QString& style,
                           QString& html);
};
