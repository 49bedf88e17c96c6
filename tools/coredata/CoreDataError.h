#pragma once

#include <QString>

#include <stdexcept>

// A fault in a source file; its text is "FILE:LINE: message", ready for standard error.
class CoreDataError : public std::runtime_error {
public:
    CoreDataError(const QString& file, int line, const QString& message)
        : std::runtime_error(
              QStringLiteral("%1:%2: %3").arg(file).arg(line).arg(message).toStdString()) {}
    explicit CoreDataError(const QString& message) : std::runtime_error(message.toStdString()) {}

    QString text() const { return QString::fromStdString(what()); }
};
