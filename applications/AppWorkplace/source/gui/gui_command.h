#pragma once

#include <QTimer>

#include <memory>

#include "../cli/command_line.h"
#include "window_order.h"

class WindowMemory;
class WindowModel;
class WindowView;

/// `gui`: the window.
class GuiCommand : public CliCommand
{
    Q_OBJECT

public:
    GuiCommand(const CliContext& context, const WindowOrder& order);
    ~GuiCommand() override;

    static CliEntry entry();

    void start() override;
    void interrupt() override;

private:
    /// What the order does not say is as it was left.
    void recall();
    void takePictureWhenReady();
    void takePicture();

    WindowOrder m_order;
    std::unique_ptr<WindowMemory> m_memory;
    std::unique_ptr<WindowModel> m_model;
    std::unique_ptr<WindowView> m_view;
    QTimer m_pictureLimit;
    bool m_isTakingPicture = false;
    int m_exitStatus = 0;
};
