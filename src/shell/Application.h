#pragma once

#include "base/Ports.h"
#include "import/MediaClassification.h"
#include "import/RenderableDocuments.h"
#include "platform/Interrupts.h"
#include "platform/LinuxPlatform.h"
#include "shell/AppDelegate.h"
#include "shell/LaunchOptions.h"

#include <memory>

namespace mosaro::shell {

class Snapshot;

/// The composition root: puts the real platform, the managers and the delegate together, and runs them.
class Application {
public:
    Application(platform::Platform platform, LaunchOptions options);
    ~Application();

    /// Until the program ends; its exit status.
    int run();

private:
    void putPortsIn();

    LaunchOptions m_options;
    platform::Platform m_platform;
    importing::RenderableDocuments m_renderable;
    importing::MediaClassification m_classification;
    std::unique_ptr<base::Prompts> m_prompts;
    platform::SingleInstance m_instance;
    platform::Interrupts m_interrupts;
    AppDelegate m_delegate;
    std::unique_ptr<Snapshot> m_snapshot;
};

} // namespace mosaro::shell
