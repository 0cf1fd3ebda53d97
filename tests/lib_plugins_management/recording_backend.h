#pragma once

#include <QStringList>

#include <functional>

#include <lib_plugins_management/d_abstract_plugin_backend.h>

#include "scripted_command.h"

/// Notes each reply as "index name cmd_success" and each release as "released index".
class RecordingBackend : public DAbstractPluginBackend
{
    Q_OBJECT

public:
    explicit RecordingBackend(QObject* parent = nullptr) : DAbstractPluginBackend(QStringLiteral("Panel"), parent) {}

    bool applyTreatmentReply(int index, const QString& treatment, const Values& reply) override
    {
        heard.append(QStringLiteral("%1 %2 %3")
                         .arg(index)
                         .arg(treatment, reply.value(QStringLiteral("cmd_success")).toString()));
        replies.append(reply);
        if (onReply) {
            onReply();
        }
        return true;
    }
    void treatmentReleased(int index) override { heard.append(QStringLiteral("released %1").arg(index)); }

    QStringList heard;
    QList<Values> replies;
    std::function<void()> onReply;
};
