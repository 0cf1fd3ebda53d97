#pragma once

#include <QVariant>

struct HistoryRecord;

/// What the window shows of programs and results, as maps with readable keys. Texts that a wrench said stay as they
/// are; numbers stand beside them.
namespace wrench_entries {

/// Of the programs as Session::sigPrograms() tells them. The keys are those of DeviceModel::programs().
QVariantList programs(const QVariantList& listed);

/// Of a stored result. The keys are those of DeviceModel::result().
QVariantMap result(const HistoryRecord& record);

} // namespace wrench_entries
