#include "shell/Application.h"

#include "base/ZNUserDefaults.h"
#include "base/ZNUtilities.h"
#include "kit/WidgetPrompts.h"
#include "shell/Snapshot.h"
#include "shell/ZNMenuManager.h"
#include "store/ZNDBManager.h"

#include <QCoreApplication>

namespace mosaro::shell {

namespace {

std::unique_ptr<base::Prompts> makePrompts(const LaunchOptions& options)
{
    if (options.snapshot.isEmpty()) {
        return std::make_unique<kit::WidgetPrompts>(&base::ZNUserDefaults::sharedManager().userDefaults());
    }
    return std::make_unique<UnattendedPrompts>();
}

} // namespace

Application::Application(platform::Platform platform, LaunchOptions options)
    : m_options(std::move(options)), m_platform(std::move(platform)), m_renderable(*m_platform.thumbnailers),
      m_classification(*m_platform.types, m_renderable), m_prompts(makePrompts(m_options)),
      m_delegate({.library = store::ZNDBManager::sharedManager(),
                  .defaults = base::ZNUserDefaults::sharedManager(),
                  .utilities = base::ZNUtilities::sharedManager(),
                  .prompts = *m_prompts,
                  .platform = m_platform,
                  .classification = m_classification,
                  .menus = ZNMenuManager::sharedManager(),
                  .unattended = !m_options.snapshot.isEmpty()},
                 m_options)
{
    putPortsIn();
}

Application::~Application()
{
    base::ZNUtilities& utilities = base::ZNUtilities::sharedManager();
    utilities.setPrompts(nullptr);
    utilities.setUserNotifier(nullptr);
    utilities.setSoundPlayer(nullptr);
    store::ZNDBManager::sharedManager().setPrompts(nullptr);
}

void Application::putPortsIn()
{
    base::ZNUtilities& utilities = base::ZNUtilities::sharedManager();
    utilities.setPrompts(m_prompts.get());
    utilities.setUserNotifier(m_platform.notifier.get());
    utilities.setSoundPlayer(m_platform.sounds.get());
    store::ZNDBManager& library = store::ZNDBManager::sharedManager();
    library.setUp(base::ZNUserDefaults::sharedManager(), *m_platform.bookmarks,
                  platform::applicationSupportFolder());
    library.setPrompts(m_prompts.get());
}

int Application::run()
{
    if (!m_options.snapshot.isEmpty()) {
        m_snapshot = std::make_unique<Snapshot>(m_delegate, m_options.snapshot, m_options.imports);
    } else if (!m_instance.claim()) {
        return 0;
    }
    QObject::connect(&m_instance, &platform::SingleInstance::raiseRequested, &m_delegate,
                     &AppDelegate::applicationShouldHandleReopen);
    QObject::connect(&m_interrupts, &platform::Interrupts::interrupted, &m_delegate,
                     &AppDelegate::endSession);
    m_delegate.start();
    const int status = QCoreApplication::exec();
    return m_snapshot ? m_snapshot->status() : status;
}

} // namespace mosaro::shell
