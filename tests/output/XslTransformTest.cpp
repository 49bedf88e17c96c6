// The libxml2/libxslt door: hostile documents and style sheets are refused before anything
// is read, broken style sheets are named in the error.
#include "DXslTransform.h"
#include "TestSupport.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

constexpr const char* kSecret = "SECRET-MARKER-7f3a";

QByteArray IdentitySheet() {
    return "<xsl:stylesheet version=\"1.0\" xmlns:xsl=\"http://www.w3.org/1999/XSL/Transform\">"
           "<xsl:output method=\"text\"/>"
           "<xsl:template match=\"/\"><xsl:value-of select=\".\"/></xsl:template>"
           "</xsl:stylesheet>";
}

class XslTransformTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(mDir.isValid());
        QDir().mkpath(Path("xml"));
        ASSERT_TRUE(hoardtest::writeFile(Path("secret.txt"), kSecret));
        // A style sheet outside the allowed folder, whose import must fail.
        ASSERT_TRUE(hoardtest::writeFile(Path("outside.xsl"), IdentitySheet()));
    }
    QString Path(const QString& name) const { return mDir.path() + "/" + name; }
    QByteArray Replace(QByteArray text) const {
        return text.replace("SECRET", QFile::encodeName(Path("secret.txt")))
            .replace("OUTSIDE", QFile::encodeName(Path("outside.xsl")));
    }
    DXslTransform Transformer() const { return DXslTransform({Path("xml")}); }

    QTemporaryDir mDir;
};

TEST_F(XslTransformTest, ExternalResourcesAreRefusedUnread) {
    const QByteArray plainDoc = "<character><name>Tordek</name></character>";
    const struct {
        const char* what;
        QByteArray document;
        QByteArray sheet;
    } cases[] = {
        {"external entity in the document",
         "<!DOCTYPE c [<!ENTITY x SYSTEM \"file://SECRET\">]><c>&x;</c>", IdentitySheet()},
        {"the password file as an entity",
         "<!DOCTYPE c [<!ENTITY x SYSTEM \"file:///etc/passwd\">]><c>&x;</c>", IdentitySheet()},
        {"external parameter entity",
         "<!DOCTYPE c [<!ENTITY % p SYSTEM \"file://SECRET\"> %p;]><c/>", IdentitySheet()},
        {"external DTD", "<!DOCTYPE c SYSTEM \"http://127.0.0.1:9/x.dtd\"><c/>", IdentitySheet()},
        {"external entity in the style sheet", plainDoc,
         "<!DOCTYPE s [<!ENTITY x SYSTEM \"file://SECRET\">]>"
         "<xsl:stylesheet version=\"1.0\" xmlns:xsl=\"http://www.w3.org/1999/XSL/Transform\">"
         "<xsl:template match=\"/\">&x;</xsl:template></xsl:stylesheet>"},
        {"document() of a local file", plainDoc,
         "<xsl:stylesheet version=\"1.0\" xmlns:xsl=\"http://www.w3.org/1999/XSL/Transform\">"
         "<xsl:template match=\"/\"><xsl:copy-of select=\"document('file://SECRET')\"/>"
         "</xsl:template></xsl:stylesheet>"},
        {"import from the network", plainDoc,
         "<xsl:stylesheet version=\"1.0\" xmlns:xsl=\"http://www.w3.org/1999/XSL/Transform\">"
         "<xsl:import href=\"http://127.0.0.1:9/x.xsl\"/></xsl:stylesheet>"},
        {"import from outside the style sheet folders", plainDoc,
         "<xsl:stylesheet version=\"1.0\" xmlns:xsl=\"http://www.w3.org/1999/XSL/Transform\">"
         "<xsl:import href=\"file://OUTSIDE\"/></xsl:stylesheet>"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        ASSERT_TRUE(hoardtest::writeFile(Path("xml/probe.xsl"), Replace(c.sheet)));
        QByteArray result;
        QString error;
        EXPECT_FALSE(Transformer().Apply(Replace(c.document), "probe.xml", Path("xml/probe.xsl"),
                                         result, error));
        EXPECT_TRUE(error.contains("refused")) << error.toStdString();
        EXPECT_FALSE(result.contains(kSecret));
        EXPECT_FALSE(result.contains("root:"));
    }
}

TEST_F(XslTransformTest, StyleSheetWritesAreRefused) {
    const QByteArray sheet =
        "<xsl:stylesheet version=\"1.0\" xmlns:xsl=\"http://www.w3.org/1999/XSL/Transform\" "
        "xmlns:exsl=\"http://exslt.org/common\" extension-element-prefixes=\"exsl\">"
        "<xsl:template match=\"/\"><exsl:document href=\"file://WRITTEN\">x</exsl:document>"
        "</xsl:template></xsl:stylesheet>";
    ASSERT_TRUE(hoardtest::writeFile(
        Path("xml/write.xsl"), QByteArray(sheet).replace("WRITTEN", QFile::encodeName(Path("w")))));
    QByteArray result;
    QString error;
    EXPECT_FALSE(Transformer().Apply("<c/>", "c.xml", Path("xml/write.xsl"), result, error));
    EXPECT_FALSE(QFileInfo::exists(Path("w")));
}

TEST_F(XslTransformTest, BrokenStyleSheetsAreNamed) {
    const struct {
        const char* what;
        QByteArray sheet;
        const char* expected;
    } cases[] = {
        {"not well-formed", "<xsl:stylesheet version=\"1.0\"", "broken.xsl:1"},
        {"not a style sheet", "<html/>", "does not compile"},
        {"unknown function",
         "<xsl:stylesheet version=\"1.0\" xmlns:xsl=\"http://www.w3.org/1999/XSL/Transform\">"
         "<xsl:template match=\"/\"><xsl:value-of select=\"nosuch(1)\"/></xsl:template>"
         "</xsl:stylesheet>",
         "nosuch"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        ASSERT_TRUE(hoardtest::writeFile(Path("xml/broken.xsl"), c.sheet));
        QByteArray result;
        QString error;
        EXPECT_FALSE(Transformer().Apply("<c/>", "c.xml", Path("xml/broken.xsl"), result, error));
        EXPECT_TRUE(error.contains(c.expected)) << error.toStdString();
        EXPECT_TRUE(error.contains("broken.xsl")) << error.toStdString();
    }
}

TEST_F(XslTransformTest, ImportsFromTheAllowedFolderWork) {
    QDir().mkpath(Path("xml/Common"));
    ASSERT_TRUE(hoardtest::writeFile(Path("xml/Common/base.xsl"), IdentitySheet()));
    ASSERT_TRUE(hoardtest::writeFile(
        Path("xml/sheet.xsl"),
        "<xsl:stylesheet version=\"1.0\" xmlns:xsl=\"http://www.w3.org/1999/XSL/Transform\">"
        "<xsl:import href=\"Common/base.xsl\"/></xsl:stylesheet>"));
    QByteArray result;
    QString error;
    ASSERT_TRUE(
        Transformer().Apply("<c>a &amp; b</c>", "c.xml", Path("xml/sheet.xsl"), result, error))
        << error.toStdString();
    EXPECT_EQ(result, "a & b");
}

} // namespace
