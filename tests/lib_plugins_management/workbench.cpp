#include "workbench.h"

#include <QCoreApplication>

namespace {
constexpr int c_enoughTurns = 40; // the longest chain of a test takes some ten
}

Workbench::Workbench() : host(std::make_unique<DHost>(clock)) {}

Workbench::~Workbench() = default;

void Workbench::set()
{
    driver = static_cast<ScriptedPlugin*>(host->createInstance(driverRoot, QUuid::createUuid()));
    device = static_cast<ScriptedPlugin*>(host->createInstance(deviceRoot, QUuid::createUuid()));
    host->linkDriver(*device, *driver);
}

std::unique_ptr<DOrder> Workbench::start(const QString& command, const Values& parameters, int limitMs)
{
    std::unique_ptr<DOrder> order = host->createOrder(*device, command, parameters);
    order->start(limitMs);
    return order;
}

void Workbench::turn()
{
    QCoreApplication::sendPostedEvents();
}

void Workbench::settle()
{
    for (int i = 0; i < c_enoughTurns; ++i) {
        QCoreApplication::processEvents();
    }
}
