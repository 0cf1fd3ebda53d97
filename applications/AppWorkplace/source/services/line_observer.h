#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

#include <memory>

#include <lib_plugins_management/host/d_order.h>

class DAbstractPlugin;
class DHost;

/// Listens to the line beside the device's own commands, without a word of its own: what the scan hears and the words
/// in which a wrench refuses are shown to people from here.
class LineObserver : public QObject
{
    Q_OBJECT

public:
    explicit LineObserver(QObject* parent = nullptr);

    /// Opens the line if it is not open yet, and keeps the driver at it.
    void start(DHost& host, DAbstractPlugin& driver);
    void stop();

    /// The last line beginning with "ERR" since forgetRefusal(); empty: none.
    QString lastRefusal() const { return m_lastRefusal; }
    void forgetRefusal() { m_lastRefusal.clear(); }
    /// In words what lastRefusal() was, else the other text.
    QString refusalOr(const QString& otherwise) const;

    /// The line has been away: what comes now is not the rest of what came before.
    void forgetPartialLine();

    /// How many bytes have come so far, in lines or not.
    qint64 heardBytes() const { return m_heardBytes; }

Q_SIGNALS:
    /// Each line, without its line end. chunk: the driver's number of the chunk that ended it.
    void sigLineHeard(const QByteArray& line, int chunk);
    /// Each chunk of input, by the driver's number, after its lines.
    void sigChunkHeard(int chunk);
    /// A wrench that a scan has heard.
    void sigWrenchHeard(const QString& address, const QString& serialId, const QString& signalStrength);

private:
    void receive(const QByteArray& bytes, int chunk);
    void keep(const char* bytes, int size);
    void takeLine(const QByteArray& bytes, int chunk);

    std::unique_ptr<DOrder> m_listener;
    QByteArray m_partialLine;
    char m_lastByte = '\0';
    bool m_isTooLong = false; // the line is dropped, up to its end
    QString m_lastRefusal;
    qint64 m_heardBytes = 0;
};
