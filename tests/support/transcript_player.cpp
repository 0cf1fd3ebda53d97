#include "transcript_player.h"

#include <QCoreApplication>
#include <QTimer>
#include <QTimerEvent>

#include <lib_plugins_management/d_abstract_command.h>
#include <lib_plugins_management/d_abstract_plugin.h>

#include "event_text.h"
#include "log_capture.h"
#include "transcript.h"
#include "typed_text.h"

namespace {

const QString c_cmdSuccess = QStringLiteral("cmd_success");

QString column(const QString& word)
{
    return word.leftJustified(TranscriptStep::c_textColumn);
}

const DAbstractCommand* prototypeOf(const DAbstractPlugin& plugin, const QString& name)
{
    const auto commands = plugin.findChildren<DAbstractCommand*>(QString(), Qt::FindDirectChildrenOnly);
    for (const DAbstractCommand* command : commands) {
        if (command->commandName() == name) {
            return command;
        }
    }
    return nullptr;
}

} // namespace

TranscriptPlayer::TranscriptPlayer(DAbstractPlugin& plugin, int pieceSize) : m_plugin(plugin), m_pieceSize(pieceSize)
{
    m_order.beforeEvent = [this] {
        noteNewEvents();
        noteProperties();
    };
}

QString TranscriptPlayer::play(const QString& file)
{
    QVector<TranscriptStep> steps;
    QString complaint = readTranscript(file, steps);
    if (!complaint.isEmpty()) {
        return complaint;
    }
    const LogCapture capture([this](const LogMessage& message) { noteMessage(message); });
    return play(steps);
}

QString TranscriptPlayer::play(const QVector<TranscriptStep>& steps)
{
    for (int i = 0; i < steps.size(); ++i) {
        const TranscriptStep& step = steps.at(i);
        QString complaint;
        if (step.isArrival()) {
            complaint = m_arrived.isEmpty() ? checkNothingHappened() : QString();
            m_arrived += step.arrival();
            if (complaint.isEmpty() && (i + 1 == steps.size() || !steps.at(i + 1).isArrival())) {
                complaint = deliverArrived();
            }
        } else if (const Action action = actionOf(step.word)) {
            complaint = checkNothingHappened();
            if (complaint.isEmpty()) {
                complaint = (this->*action)(step);
                settle();
            }
        } else {
            complaint = expect(step);
        }
        if (!complaint.isEmpty()) {
            return QStringLiteral("line %1: %2").arg(step.line).arg(complaint);
        }
    }
    return checkEnd();
}

QString TranscriptPlayer::expect(const TranscriptStep& step)
{
    const QStringList texts = step.expectedTexts(m_number);
    for (const QString& expected : texts) {
        QString complaint = takeHappened(expected);
        if (!complaint.isEmpty()) {
            return complaint;
        }
    }
    return {};
}

QString TranscriptPlayer::takeHappened(const QString& expected)
{
    if (m_happened.isEmpty()) {
        return QStringLiteral("expected \"%1\", but nothing happened").arg(expected);
    }
    const QString happened = m_happened.takeFirst();
    // "log     <level> <part of the text>"
    const bool isLog = expected.startsWith(QLatin1String("log "));
    const int levelEnd = expected.indexOf(QLatin1Char(' '), TranscriptStep::c_textColumn);
    const bool fits =
        isLog ? happened.startsWith(expected.left(levelEnd)) && happened.contains(expected.mid(levelEnd + 1))
              : happened == expected;
    return fits ? QString() : QStringLiteral("expected \"%1\", but \"%2\" happened").arg(expected, happened);
}

QString TranscriptPlayer::checkNothingHappened() const
{
    return m_happened.isEmpty()
               ? QString()
               : QStringLiteral("before this happened also:\n%1").arg(m_happened.join(QLatin1Char('\n')));
}

QString TranscriptPlayer::checkEnd()
{
    QString complaint = checkNothingHappened();
    if (complaint.isEmpty() && m_order.openSubscription() != 0) {
        complaint = QStringLiteral("a subscription is still open");
    }
    if (complaint.isEmpty() && !m_order.events().isEmpty() && m_order.events().last().kind != OrderEvent::Kind::End) {
        complaint = QStringLiteral("the run has not ended; end it with \"stop\"");
    }
    m_command.reset();
    settle();
    return complaint.isEmpty() ? checkNothingHappened() : complaint;
}

TranscriptPlayer::Action TranscriptPlayer::actionOf(const QString& word)
{
    const struct
    {
        const char* word;
        Action action;
    } actions[] = {{"given", &TranscriptPlayer::given},
                   {"run", &TranscriptPlayer::run},
                   {"run!", &TranscriptPlayer::refusedRun},
                   {"rerun", &TranscriptPlayer::rerun},
                   {"rerun!", &TranscriptPlayer::refusedRerun},
                   {"next", &TranscriptPlayer::next},
                   {"number", &TranscriptPlayer::number},
                   {"again", &TranscriptPlayer::again},
                   {"driver<", &TranscriptPlayer::driverAnswers},
                   {"self<", &TranscriptPlayer::pluginAnswers},
                   {"wait", &TranscriptPlayer::wait},
                   {"refuse", &TranscriptPlayer::refuse},
                   {"accept", &TranscriptPlayer::accept},
                   {"stop", &TranscriptPlayer::stop},
                   {"each-reply", &TranscriptPlayer::eachReply}};
    for (const auto& entry : actions) {
        if (word == QLatin1String(entry.word)) {
            return entry.action;
        }
    }
    return nullptr;
}

QString TranscriptPlayer::given(const TranscriptStep& step)
{
    const QMap<QString, QVariant> values = mapOfWords(splitWords(step.text));
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        m_plugin.setProperty(value.key(), value.value(), true);
        m_properties.insert(value.key(), value.value());
    }
    return {};
}

QString TranscriptPlayer::run(const TranscriptStep& step)
{
    const QString complaint = makeCommand(step);
    return complaint.isEmpty() ? execute(true) : complaint;
}

QString TranscriptPlayer::refusedRun(const TranscriptStep& step)
{
    const QString complaint = makeCommand(step);
    return complaint.isEmpty() ? execute(false) : complaint;
}

QString TranscriptPlayer::rerun(const TranscriptStep&)
{
    return execute(true);
}

QString TranscriptPlayer::refusedRerun(const TranscriptStep&)
{
    return execute(false);
}

QString TranscriptPlayer::next(const TranscriptStep&)
{
    return {};
}

QString TranscriptPlayer::number(const TranscriptStep& step)
{
    m_number = step.text.toInt() - 1;
    return {};
}

QString TranscriptPlayer::again(const TranscriptStep& step)
{
    --m_number;
    reply(step.arrival());
    return {};
}

QString TranscriptPlayer::driverAnswers(const TranscriptStep& step)
{
    return answer(m_driverWaiting, step);
}

QString TranscriptPlayer::pluginAnswers(const TranscriptStep& step)
{
    return answer(m_selfWaiting, step);
}

QString TranscriptPlayer::wait(const TranscriptStep& step)
{
    QTimer* timer = commandTimer();
    if (timer == nullptr || !timer->isActive()) {
        return {};
    }
    m_waitedMs += step.text.toInt();
    if (m_waitedMs >= timer->interval()) {
        m_waitedMs = 0;
        QTimerEvent event(timer->timerId());
        QCoreApplication::sendEvent(timer, &event);
    }
    return {};
}

QString TranscriptPlayer::refuse(const TranscriptStep&)
{
    m_order.refusesInstructions = true;
    return {};
}

QString TranscriptPlayer::accept(const TranscriptStep&)
{
    m_order.refusesInstructions = false;
    return {};
}

QString TranscriptPlayer::stop(const TranscriptStep&)
{
    bool ok = true;
    m_command->finishTheCommand(ok);
    return {};
}

QString TranscriptPlayer::eachReply(const TranscriptStep& step)
{
    m_eachReply = step.text.trimmed();
    m_lastOfEach = typedText(QVariant(QVariantList()));
    return {};
}

QString TranscriptPlayer::makeCommand(const TranscriptStep& step)
{
    QStringList words = splitWords(step.text);
    const QString name = words.isEmpty() ? QString() : words.takeFirst();
    const DAbstractCommand* prototype = prototypeOf(m_plugin, name);
    if (prototype == nullptr) {
        return QStringLiteral("the plugin has no command \"%1\"").arg(name);
    }
    m_command = prototype->createCommand(mapOfWords(words));
    m_command->linkWithItsOrder(&m_order);
    return {};
}

QString TranscriptPlayer::execute(bool accepted)
{
    return m_command->commandExecute() == accepted
               ? QString()
               : QStringLiteral("commandExecute() did not return %1").arg(typedText(accepted));
}

QString TranscriptPlayer::deliverArrived()
{
    const QByteArray arrived = std::exchange(m_arrived, {});
    if (m_order.openSubscription() == 0) {
        return QStringLiteral("nobody listens");
    }
    const int pieceSize = m_pieceSize == c_whole ? arrived.size() : m_pieceSize;
    // The rest of what arrives after the end of the run is heard by nobody.
    for (int begin = 0; begin < arrived.size() && m_order.openSubscription() != 0; begin += pieceSize) {
        const QByteArray piece = arrived.mid(begin, pieceSize);
        reply(piece);
        settle();
        if (m_eachReply.isEmpty()) {
            continue;
        }
        const QString mark = QStringLiteral("result  %1=").arg(m_eachReply);
        const bool isLast = begin + pieceSize >= arrived.size();
        if (!isLast && piece.contains('\n')) {
            return QStringLiteral("with \"each-reply\", lines do not arrive together");
        }
        if (!isLast) {
            QString complaint = takeHappened(mark + m_lastOfEach);
            if (!complaint.isEmpty()) {
                return complaint;
            }
        } else if (!m_happened.isEmpty()) {
            m_lastOfEach = m_happened.first().mid(mark.size());
        }
    }
    return {};
}

void TranscriptPlayer::reply(const QByteArray& piece)
{
    ++m_number;
    m_command->setReply(m_order.openSubscription(),
                        {{QStringLiteral("frame"), piece}, {QStringLiteral("number"), m_number}});
}

QString TranscriptPlayer::answer(QVector<quint64>& waiting, const TranscriptStep& step)
{
    if (waiting.isEmpty()) {
        return QStringLiteral("nobody waits for this answer");
    }
    const bool heard = m_command->setReply(waiting.takeFirst(), mapOfWords(splitWords(step.text)));
    return heard ? QString() : QStringLiteral("the answer was not taken");
}

QTimer* TranscriptPlayer::commandTimer() const
{
    const auto* object = dynamic_cast<const QObject*>(m_command.data());
    return object == nullptr ? nullptr : object->findChild<QTimer*>();
}

void TranscriptPlayer::settle()
{
    noteNewEvents();
    noteProperties();
    while (!m_scansWaiting.isEmpty()) {
        m_command->setReply(m_scansWaiting.takeFirst(), {{c_cmdSuccess, true}});
        noteNewEvents();
    }
    const QTimer* timer = commandTimer();
    const int timerId = timer == nullptr ? -1 : timer->timerId();
    if (timerId != m_timerId) {
        m_timerId = timerId;
        m_waitedMs = 0;
    }
}

void TranscriptPlayer::noteNewEvents()
{
    const QVector<OrderEvent>& events = m_order.events();
    for (; m_eventsNoted < events.size(); ++m_eventsNoted) {
        const OrderEvent& event = events.at(m_eventsNoted);
        m_happened.append(eventText(event));
        const DInstruction& instruction = event.instruction;
        if (!instruction.wantsReply || instruction.isSubscription() || event.instructionId == 0) {
            continue;
        }
        if (isScanWrite(instruction)) {
            m_scansWaiting.append(event.instructionId);
        } else if (instruction.target == QLatin1String("driver")) {
            m_driverWaiting.append(event.instructionId);
        } else {
            m_selfWaiting.append(event.instructionId);
        }
    }
}

void TranscriptPlayer::noteProperties()
{
    const QString names[] = {QStringLiteral("currentProgId"), QStringLiteral("lock"), QStringLiteral("programList"),
                             QStringLiteral("programListCount")};
    for (const QString& name : names) {
        bool exists = false;
        const QVariant value = m_plugin.getProperty(name, &exists);
        if (!exists || (m_properties.contains(name) && m_properties.value(name) == value)) {
            continue;
        }
        m_properties.insert(name, value);
        const QJsonValue stored = m_plugin.getInPluginConfig(QStringLiteral("properties")).toObject().value(name);
        const bool persistent = stored == QJsonValue::fromVariant(value);
        m_happened.append(QStringLiteral("property ") + typedText(QMap<QString, QVariant>{{name, value}}) +
                          (persistent ? QString() : QStringLiteral(" (not persistent)")));
    }
}

void TranscriptPlayer::noteMessage(const LogMessage& message)
{
    const struct
    {
        QtMsgType type;
        const char* level;
    } levels[] = {{QtInfoMsg, "info"}, {QtWarningMsg, "warning"}, {QtCriticalMsg, "critical"}};
    for (const auto& level : levels) {
        if (message.type == level.type) {
            noteNewEvents();
            noteProperties();
            m_happened.append(column(QStringLiteral("log")) + QLatin1String(level.level) + QLatin1Char(' ') +
                              message.text);
        }
    }
}
