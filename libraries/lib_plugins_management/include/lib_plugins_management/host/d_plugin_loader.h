#pragma once

#include <QList>
#include <QString>

#include <lib_plugins_management/export.h>

class DAbstractPlugin;

/// Why a plugin file is not used: the file, the cause, and how to mend it.
struct LIB_PLUGINS_MANAGEMENT_EXPORT DPluginRefusal
{
    QString file;
    QString cause;
    QString mend;

    /// One sentence for people.
    QString message() const;
};

/// Finds plugin libraries and loads them. A file that cannot be used is refused and named; the others still load.
/// Nothing is loaded that somebody else could have changed: file and folder must belong to root, to this user or to the
/// owner of the running program, and nobody else may write to them. A group that is the owner's alone is no matter.
/// Loaded libraries stay loaded until the process ends.
class LIB_PLUGINS_MANAGEMENT_EXPORT DPluginLoader
{
public:
    /// Loads every library in the folder, in the order of their names.
    void loadFolder(const QString& folder);
    /// Loads one library. Null when it is refused.
    DAbstractPlugin* loadFile(const QString& file);

    /// The root instances, with their commands declared; the libraries own them.
    const QList<DAbstractPlugin*>& roots() const { return m_roots; }
    const QList<DPluginRefusal>& refusals() const { return m_refusals; }

private:
    DAbstractPlugin* refuse(const QString& file, const QString& cause, const QString& mend);

    QList<DAbstractPlugin*> m_roots;
    QList<DPluginRefusal> m_refusals;
};
