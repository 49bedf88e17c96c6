#pragma once

#include <QString>
#include <QTextStream>

#include <initializer_list>
#include <utility>

// The hand-written XML of every document: one tab of indent per open element, text escaped,
// the depth kept by the stream itself so that writers nest without sharing anything.
class DXmlStream {
public:
    explicit DXmlStream(QTextStream& out) : mOut(out) {}

    // The declaration (unless omitted), the style sheet instruction when a name is given, and
    // the empty line before the root.
    void WriteHead(const QString& styleSheet, bool omitDeclaration);
    void Open(const char* name);
    void Close(const char* name);
    void Text(const char* name, const QString& text);
    void Number(const char* name, int value);
    // <tag name="N" value="V"/>
    void NameValue(const char* tag, const QString& name, const QString& value);
    void NameValue(const char* tag, const QString& name, int value);
    // <name a="1" b="2"/>
    void Attributes(const char* name,
                    std::initializer_list<std::pair<const char*, QString>> attributes);
    int GetDepth() const { return mDepth; }

    // & first, then > and <; quotes stay as they are.
    static QString Escape(const QString& text);
    // Within an attribute's quotes a quote would end the value: it is escaped there too.
    static QString EscapeAttribute(const QString& text);
    // "+3", "0", "-1".
    static QString Signed(int value);

private:
    void Indent();

    QTextStream& mOut;
    int mDepth = 0;
};
