#pragma once

#include <QJsonObject>
#include <QString>

/// A file of the data folder that holds one JSON object. Without a path nothing is kept.
class JsonObjectFile
{
public:
    /// A longer file is refused before it is read whole.
    static constexpr int c_maxBytes = 4 * 1024 * 1024;

    /// path: empty for none.
    explicit JsonObjectFile(const QString& path) : m_path(path) {}

    /// Replaces object by what the file holds; there is no file: leaves it. False, with the cause, when the file cannot
    /// be used; object and file are left alone then.
    bool load(QJsonObject* object, QString* cause) const;
    /// Replaces the file at once and whole, its folder is made. False, with the cause, when it cannot.
    bool save(const QJsonObject& object, QString* cause) const;

    const QString& path() const { return m_path; }

private:
    QString m_path;
};
