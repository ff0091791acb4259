#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

namespace mosaro::base {

/// The one question that every long or destructive command asks first.
class BusyGate {
public:
    virtual ~BusyGate() = default;
    [[nodiscard]] virtual bool isBusy() const = 0;
};

/// Where long work reports to. Percent is 0 to 100; an empty text keeps the text on show.
class ProgressSink {
public:
    virtual ~ProgressSink() = default;
    virtual void begin(const QString& text) = 0;
    virtual void update(const QString& text, int percent) = 0;
    virtual void end() = 0;
    /// After begin(): the user may stop the work, once. Null takes the offer back; a new begin() does, too.
    virtual void offerStop(const std::function<void()>& /*stop*/) {}
};

/// An alert: texts are resolved already. An empty alternate button leaves it out.
struct AlertRequest {
    QString messageText;
    QString defaultButton;
    QString alternateButton;
    QString informativeText;
};

struct OpenPanelRequest {
    QString title;
    QString message;
    QString prompt;       ///< Text of the button that confirms.
    QString directory;    ///< Where to start; empty: where the last panel ended.
    QStringList suffixes; ///< Extensions to offer, without a dot; empty: any.
    bool files = true;
    bool directories = false;
    bool multiple = false;
    bool packages = false; ///< Directories with one of the suffixes count as files.
};

struct SavePanelRequest {
    QString title;
    QString prompt;
    QString nameLabel;
    QString name;
    QString directory;
    QString suffix;
};

/// Everything that is asked of the user in a modal way.
class Prompts {
public:
    virtual ~Prompts() = default;
    /// 1 for the default button, 0 otherwise.
    virtual int alert(const AlertRequest& request) = 0;
    /// The chosen absolute paths; empty when cancelled.
    virtual QStringList openPanel(const OpenPanelRequest& request) = 0;
    virtual std::optional<QString> savePanel(const SavePanelRequest& request) = 0;
    virtual void beep() = 0;
};

/// Delivers a notification of the desktop. Never blocks for longer than the bus call.
class UserNotifier {
public:
    virtual ~UserNotifier() = default;
    virtual void notify(const QString& title, const QString& subtitle, const QString& content) = 0;
};

/// Plays a sound resource (a WAV file of ":/sounds/") once, without waiting.
class SoundPlayer {
public:
    virtual ~SoundPlayer() = default;
    virtual void play(const QString& resource) = 0;
};

} // namespace mosaro::base
