#pragma once

#include <QByteArray>
#include <QString>

#include <exception>

namespace odbc {

// A failure of the database or of a call on this layer, carrying the driver's own text.
class SQLException : public std::exception {
public:
    explicit SQLException(const QString& message);

    const char* what() const noexcept override;
    const QString& getMessage() const { return mMessage; }

private:
    QString mMessage;
    QByteArray mUtf8; // what() must hand out storage that lives as long as the exception
};

} // namespace odbc
