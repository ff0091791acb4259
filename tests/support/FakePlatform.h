#pragma once

#include "platform/Ports.h"

#include <QFileInfo>
#include <QHash>
#include <QList>

namespace mosaro::test {

/// Types as a well-equipped desktop would answer, by extension; what a test adds comes first.
class FakeTypes : public platform::TypeDatabase {
public:
    QHash<QString, QString> mimeTypes;
    QHash<QString, QStringList> ancestors;

    QString mimeTypeForExtension(const QString& extension) const override
    {
        return mimeTypes.value(extension.toLower());
    }
    bool inherits(const QString& mime, const QString& ancestor) const override
    {
        return mime == ancestor || ancestors.value(mime).contains(ancestor);
    }
};

class FakeThumbnailers : public platform::ThumbnailerLookup {
public:
    QStringList installed;
    QString command = QStringLiteral("false");
    bool hasThumbnailer(const QStringList& mimeTypes) const override
    {
        return std::any_of(mimeTypes.begin(), mimeTypes.end(),
                           [this](const QString& mime) { return installed.contains(mime); });
    }
    QString thumbnailerCommand(const QStringList& mimeTypes) const override
    {
        return hasThumbnailer(mimeTypes) ? command : QString();
    }
};

class FakeFileIndex : public platform::FileIndex {
public:
    QHash<QString, platform::FileIndexEntry> entries;
    platform::FileIndexEntry read(const QString& path) const override { return entries.value(path); }
    bool writeLabelNumber(const QString& path, int labelNumber) override
    {
        entries[path].labelNumber = labelNumber;
        return true;
    }
};

/// Symbolic links only.
class FakeAliases : public platform::AliasResolver {
public:
    QString resolve(const QString& path) const override
    {
        const QFileInfo info(path);
        return info.isSymLink() ? info.canonicalFilePath() : info.absoluteFilePath();
    }
};

/// Paths as data. A test may take a path's grant away.
class FakeBookmarks : public platform::Bookmarks {
public:
    QStringList refused;
    QByteArray bookmarkData(const QString& path) const override
    {
        return refused.contains(path) || !QFileInfo::exists(path) ? QByteArray() : path.toUtf8();
    }
    QString resolve(const QByteArray& bookmark) const override
    {
        const QString path = QString::fromUtf8(bookmark);
        return QFileInfo::exists(path) ? path : QString();
    }
};

class FakeNotifier : public base::UserNotifier {
public:
    struct Note {
        QString title, subtitle, content;
    };
    QList<Note> notes;
    void notify(const QString& title, const QString& subtitle, const QString& content) override
    {
        notes.append({title, subtitle, content});
    }
};

class FakeSounds : public base::SoundPlayer {
public:
    QStringList played;
    void play(const QString& resource) override { played.append(resource); }
};

/// Answers from lists set up by the test, and notes what was asked.
class FakePrompts : public base::Prompts {
public:
    QList<int> alertAnswers;
    QList<QStringList> openAnswers;
    QList<std::optional<QString>> saveAnswers;
    QList<base::AlertRequest> alerts;
    QList<base::OpenPanelRequest> openPanels;
    QList<base::SavePanelRequest> savePanels;
    int beeps = 0;

    int alert(const base::AlertRequest& request) override
    {
        alerts.append(request);
        return alertAnswers.isEmpty() ? 0 : alertAnswers.takeFirst();
    }
    QStringList openPanel(const base::OpenPanelRequest& request) override
    {
        openPanels.append(request);
        return openAnswers.isEmpty() ? QStringList() : openAnswers.takeFirst();
    }
    std::optional<QString> savePanel(const base::SavePanelRequest& request) override
    {
        savePanels.append(request);
        return saveAnswers.isEmpty() ? std::nullopt : saveAnswers.takeFirst();
    }
    void beep() override { ++beeps; }
};

} // namespace mosaro::test
