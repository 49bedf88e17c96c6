#include "DXmlStream.h"

void DXmlStream::WriteHead(const QString& styleSheet, bool omitDeclaration) {
    mDepth = 0;
    if (!omitDeclaration)
        mOut << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    if (!styleSheet.isEmpty())
        mOut << "<?xml-stylesheet type=\"text/xsl\" href=\"" << Escape(styleSheet) << "\"?>\n";
    mOut << "\n";
}

void DXmlStream::Indent() {
    for (int i = 0; i < mDepth; ++i)
        mOut << '\t';
}

void DXmlStream::Open(const char* name) {
    Indent();
    mOut << '<' << name << ">\n";
    ++mDepth;
}

void DXmlStream::Close(const char* name) {
    --mDepth;
    Indent();
    mOut << "</" << name << ">\n";
}

void DXmlStream::Text(const char* name, const QString& text) {
    Indent();
    mOut << '<' << name << '>' << Escape(text) << "</" << name << ">\n";
}

void DXmlStream::Number(const char* name, int value) {
    Text(name, QString::number(value));
}

void DXmlStream::NameValue(const char* tag, const QString& name, const QString& value) {
    Indent();
    mOut << '<' << tag << " name=\"" << name << "\" value=\"" << EscapeAttribute(value) << "\"/>\n";
}

void DXmlStream::NameValue(const char* tag, const QString& name, int value) {
    NameValue(tag, name, QString::number(value));
}

void DXmlStream::Attributes(const char* name,
                            std::initializer_list<std::pair<const char*, QString>> attributes) {
    Indent();
    mOut << '<' << name;
    for (const auto& [attribute, value] : attributes)
        mOut << ' ' << attribute << "=\"" << EscapeAttribute(value) << '"';
    mOut << "/>\n";
}

QString DXmlStream::Escape(const QString& text) {
    QString out = text;
    out.replace('&', QStringLiteral("&amp;"));
    out.replace('>', QStringLiteral("&gt;"));
    out.replace('<', QStringLiteral("&lt;"));
    return out;
}

QString DXmlStream::EscapeAttribute(const QString& text) {
    return Escape(text).replace('"', QStringLiteral("&quot;"));
}

QString DXmlStream::Signed(int value) {
    return value >= 0 ? QStringLiteral("+%1").arg(value) : QString::number(value);
}
