#include "gui_command.h"

#include <QRegularExpression>

#include "../cli/number_options.h"
#include "../services/device_settings.h"
#include "../services/language.h"
#include "../services/translations.h"
#include "../services/workplace.h"
#include "small_picture.h"
#include "window_memory.h"
#include "window_model.h"
#include "window_view.h"

namespace {

constexpr int c_pictureLimitMs = 120000;
// Below, nothing can be read; beyond, there is no display, and a picture takes more memory than there is.
constexpr QSize c_smallest(640, 480);
constexpr QSize c_largest(7680, 4320);
const QString c_device = QStringLiteral("device");
const QString c_page = QStringLiteral("page");
const QString c_theme = QStringLiteral("theme");
const QString c_size = QStringLiteral("size");
const QString c_connect = QStringLiteral("connect");
const QString c_screenshot = QStringLiteral("screenshot");
const QString c_results = QStringLiteral("results");

Problem usage(const QString& what, const QString& mend)
{
    return {Problem::Kind::Usage, QStringLiteral("command line"), what, {}, mend};
}

/// One of the names, or a problem.
void takeName(const QCommandLineParser& options, const QString& option, const QStringList& names, QString& name,
              Problem* problem)
{
    if (options.isSet(option)) {
        name = options.value(option);
        if (!names.contains(name)) {
            *problem = usage(GuiCommand::tr("--%1 cannot be \"%2\"").arg(option, name),
                             GuiCommand::tr("choose one of: %1").arg(names.join(QStringLiteral(", "))));
        }
    }
}

void takeSize(const QCommandLineParser& options, QSize& size, Problem* problem)
{
    if (options.isSet(c_size)) {
        static const QRegularExpression form(QStringLiteral("^(\\d{3,5})x(\\d{3,5})$"));
        const QRegularExpressionMatch match = form.match(options.value(c_size));
        size = QSize(match.captured(1).toInt(), match.captured(2).toInt());
        const bool isShown = size.boundedTo(c_largest).expandedTo(c_smallest) == size;
        if (!match.hasMatch() || !isShown) {
            *problem = usage(GuiCommand::tr("--%1 cannot be \"%2\"").arg(c_size, options.value(c_size)),
                             GuiCommand::tr("say it in pixels, as 1280x800: from 640x480 to 7680x4320"));
        }
    }
}

std::unique_ptr<CliCommand> make(const CliContext& context, Problem* problem)
{
    const QCommandLineParser& options = context.options;
    WindowOrder order;
    if (const std::optional<Problem> refusal =
            readDevices(options.values(c_device), context.settings, &order.devices)) {
        *problem = *refusal;
    }
    takeName(options, c_page, WindowModel::pages(), order.page, problem);
    takeName(options, c_theme, WindowModel::themes(), order.theme, problem);
    takeSize(options, order.size, problem);
    order.connects = options.isSet(c_connect);
    order.screenshot = options.value(c_screenshot);
    order.results = wholeNumberOption(options, c_results, 1, problem);
    if (!context.arguments.isEmpty()) {
        *problem = usage(GuiCommand::tr("the window takes no argument \"%1\"").arg(context.arguments.first()),
                         GuiCommand::tr("see app_workplace gui --help"));
    }
    return problem->what.isEmpty() ? std::make_unique<GuiCommand>(context, order) : nullptr;
}

} // namespace

CliEntry GuiCommand::entry()
{
    return {
        QStringLiteral("gui"),
        {},
        tr("Shows the window: the work, the results, maintenance, trace and doctor."),
        {{c_device, tr("A device of the window, instead of that of --port and --serial-id. More than once: several."),
          QStringLiteral("PORT[,NUMBER]")},
         {c_connect, tr("Each device whose wrench is known begins to work at once.")},
         {c_page, tr("The page to begin with."), WindowModel::pages().join(QLatin1Char('|'))},
         {c_theme, tr("How it looks."), WindowModel::themes().join(QLatin1Char('|'))},
         {c_size, tr("The size of the window in pixels, 640x480 to 7680x4320; 1280x800 when not said."),
          QStringLiteral("WxH")},
         {c_screenshot, tr("Draws the window into this PNG file and ends; no display is needed."),
          QStringLiteral("FILE")},
         {c_results, tr("With --screenshot and --connect: when so many results have come."), QStringLiteral("N")}},
        &make,
        true};
}

GuiCommand::GuiCommand(const CliContext& context, const WindowOrder& order) : CliCommand(context), m_order(order) {}

GuiCommand::~GuiCommand() = default;

void GuiCommand::start()
{
    WindowView::loadIconReader();
    recall();
    m_model = std::make_unique<WindowModel>(m_order);
    m_memory->follow(*m_model);
    m_view = std::make_unique<WindowView>(*m_model);
    connect(m_model.get(), &WindowModel::sigEnded, this, [this] { Q_EMIT sigDone(m_exitStatus); });
    if (!m_view->show(m_order.size)) {
        tell({Problem::Kind::SetUp, QStringLiteral("gui"), tr("the window cannot be made"), tr("see the log above"),
              tr("install the packages that \"./run gui\" names")});
        Q_EMIT sigDone(int(Problem::Kind::SetUp));
        return;
    }
    if (m_order.connects) {
        m_model->connectAll();
    }
    if (!m_order.screenshot.isEmpty()) {
        m_pictureLimit.setSingleShot(true);
        m_pictureLimit.start(c_pictureLimitMs);
        connect(&m_pictureLimit, &QTimer::timeout, this, [this] {
            tell({Problem::Kind::Device,
                  QStringLiteral("gui"),
                  tr("the window did not come to what is to be drawn"),
                  {},
                  {}});
            m_exitStatus = int(Problem::Kind::Device);
            interrupt();
        });
        connect(m_view->window(), &QQuickWindow::frameSwapped, this, &GuiCommand::takePictureWhenReady,
                Qt::QueuedConnection);
        connect(m_model->history(), &HistoryTable::sigLoaded, this, &GuiCommand::takePictureWhenReady,
                Qt::QueuedConnection);
        connect(m_model->history(), &HistoryTable::sigChanged, this, &GuiCommand::takePictureWhenReady,
                Qt::QueuedConnection);
        // A page may show nothing of that, and draw no frame for it.
        connect(m_model->devices()->at(0), &DeviceModel::resultChanged, this, &GuiCommand::takePictureWhenReady,
                Qt::QueuedConnection);
    }
}

void GuiCommand::recall()
{
    m_memory = std::make_unique<WindowMemory>(Workplace::dataFolder(m_settings));
    const QString mend = tr("see that the folder can be written, or name another with --data");
    connect(m_memory.get(), &WindowMemory::sigNotKept, this, [this, mend](const QString& cause) {
        tell({Problem::Kind::SetUp, QStringLiteral("gui"),
              tr("how the window looks cannot be kept in %1").arg(m_memory->file()), cause, mend});
    });
    QString cause;
    if (!m_memory->recall(m_order, &cause)) {
        tell({Problem::Kind::SetUp, QStringLiteral("gui"),
              tr("how the window looked cannot be read from %1").arg(m_memory->file()), cause,
              tr("choose theme and language anew; that replaces the file")});
    }
    translations::install(language::choose(m_order.devices.first()).name);
}

void GuiCommand::interrupt()
{
    if (m_model == nullptr) {
        Q_EMIT sigDone(0);
    } else {
        m_model->close();
    }
}

void GuiCommand::takePictureWhenReady()
{
    const DeviceModel* device = m_model->devices()->at(0);
    const bool isReady =
        !m_order.connects || device->hasProblem() ||
        (device->state() == DeviceModel::Working && device->good() + device->notGood() >= m_order.results);
    if (isReady && m_model->history()->isAtRest() && !m_isTakingPicture) {
        m_isTakingPicture = true;
        takePicture();
    }
}

void GuiCommand::takePicture()
{
    m_view->picture([this](const QImage& image) {
        constexpr int c_smallestFile = 0; // at the cost of time
        if (!smallPicture(image).save(m_order.screenshot, "PNG", c_smallestFile)) {
            tell({Problem::Kind::SetUp,
                  QStringLiteral("gui"),
                  tr("the picture cannot be written to %1").arg(m_order.screenshot),
                  {},
                  tr("look at the folder and its rights")});
            m_exitStatus = int(Problem::Kind::SetUp);
        }
        m_pictureLimit.stop();
        interrupt();
    });
}
