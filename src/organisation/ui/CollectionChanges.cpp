#include "organisation/ui/CollectionChanges.h"

#include "base/Notifications.h"
#include "base/PreferenceKeys.h"
#include "base/Text.h"
#include "organisation/CollectionCommands.h"
#include "organisation/DatabaseError.h"
#include "organisation/MediaMove.h"
#include "organisation/NoPanel.h"
#include "organisation/SmartRules.h"
#include "organisation/ui/MRLibraryCollectionSource.h"
#include "store/RecordReference.h"

#include <QPointer>
#include <QTimer>

namespace mosaro::organisation {

namespace {

constexpr int kBreath = 250;      ///< Milliseconds in which the panel appears, and between records and files.
constexpr qint64 kPatience = 400; ///< Milliseconds of a move before its panel appears.
constexpr int kMoveSound = 0;
constexpr int kDeleteSound = 1;
constexpr double kUnknownProgress = -1;

base::ProgressSink& panelOf(const SidebarEnvironment& environment)
{
    static NoPanel none;
    return environment.progress ? *environment.progress : none;
}

QString counted(const char* one, const char* more, qsizetype count)
{
    return base::text(count < 2 ? one : more, QString::number(count));
}

} // namespace

CollectionChanges::CollectionChanges(MRLibraryCollectionSource& source, const SidebarEnvironment& environment)
    : m_source(source), m_environment(environment), m_panel(panelOf(environment)),
      m_files(m_panel, environment.utilities, environment.defaults), m_moveProgress(environment.progress)
{
    m_moveProgress.setStop([this] { m_run.stop(); });
}

CollectionChanges::~CollectionChanges()
{
    removeFiles();
}

void CollectionChanges::deleteCollection()
{
    QStringList ids;
    for (const CollectionNode* node : m_source.selectedNodes()) {
        ids.append(node->id);
    }
    if (ids.isEmpty() || isRunning() || !m_environment.library.isOpenedDatabase()) {
        return;
    }
    const QPointer<CollectionChanges> self(this); // The question runs an event loop.
    const int answer = m_environment.utilities.alertWithMessageText(
        base::text("Basic.Alert"), base::text("Basic.Delete"), base::text("Basic.Cancel"),
        counted("Message.Delete.Collection", "Message.Delete.Collections", ids.size()));
    if (answer != 1 || self.isNull()) {
        return;
    }
    NodeList actionArray;
    for (const QString& id : ids) {
        if (const CollectionNode* node = m_source.node(id)) {
            actionArray.push_back(node);
            findChildrenInFolderItem(node->nodes, actionArray);
        }
    }
    QStringList all;
    for (const CollectionNode* node : actionArray) {
        all.append(node->id);
    }
    all.removeDuplicates();
    m_isDeleting = true;
    m_isStopped = false;
    m_panel.begin(base::text("Basic.Delete.Collections"));
    m_panel.update(base::text("Basic.Delete.Collections"), int(kUnknownProgress));
    m_panel.offerStop([this] {
        m_isStopped = true;
        m_run.stop();
    });
    QTimer::singleShot(kBreath, this, [this, all] { startRemoval(all); });
}

void CollectionChanges::startRemoval(const QStringList& ids)
{
    if (m_isStopped) {
        m_isDeleting = false;
        m_panel.end();
        return;
    }
    store::ZNDBManager& library = m_environment.library;
    m_removal = std::make_unique<CollectionRemoval>(m_run, *library.context(), library.state(),
                                                    library.masterDirPath());
    m_removal->start(
        ids, [this](int percent) { m_panel.update({}, percent); },
        [this](const RecordRun::End& end) { finishRemoval(end); });
}

/// Of a run that was stopped, too: what is gone by then is gone with its files.
void CollectionChanges::finishRemoval(const RecordRun::End& end)
{
    m_panel.offerStop(nullptr);
    if (!end.failure.isEmpty()) {
        showDatabaseError(end.failure);
    }
    m_source.rebuild();
    m_source.reopenUserGroup();
    base::ZNUtilities& utilities = m_environment.utilities;
    utilities.postNotification(base::MOSARO_NOTI_COMPLETED_COLLECTION_DELETED);
    if (m_removal->packages().isEmpty() && end.changed > 0) {
        if (m_environment.defaults.boolean(base::PREFS_GENERAL_SHOW_REMOVE_MEDIA_NOTI)) {
            utilities.postUserNotification(base::text("Message.Remove.Completed"), {},
                                           counted("Message.Remove.Completed.Collection",
                                                   "Message.Remove.Completed.Collections", end.changed));
        }
        utilities.playSoundEffect(kDeleteSound, m_environment.defaults);
    }
    QTimer::singleShot(kBreath, this, [this] {
        m_isDeleting = false;
        removeFiles();
    });
}

void CollectionChanges::removeFiles()
{
    if (const auto removal = std::move(m_removal)) {
        m_files.deleteMediaFiles(removal->packages());
    }
}

void CollectionChanges::moveMediaItem(const QStringList& mediaIDs, const QStringList& from,
                                      const CollectionNode& to)
{
    store::StoreContext* context = m_environment.library.context();
    const auto target =
        context ? store::unarchivedReference<store::Collections>(*context, to.object) : nullptr;
    if (mediaIDs.isEmpty() || from.isEmpty() || !target || isRunning()) {
        return;
    }
    m_moveClock.start();
    startMediaMove(
        m_run, *context, mediaIDs, target,
        [this, total = mediaIDs.size()](qsizetype done) { showMove(done, total); },
        [this](const RecordRun::End& end) { finishMove(end); });
}

/// Only for a move that takes long enough to wonder.
void CollectionChanges::showMove(qsizetype done, qsizetype total)
{
    if (m_moveClock.elapsed() >= kPatience) {
        const int percent = percentOf(done, total);
        m_moveProgress.report(base::text("Basic.Move.Media", QString::number(percent)), percent);
    }
}

void CollectionChanges::finishMove(const RecordRun::End& end)
{
    m_moveProgress.end();
    if (!end.failure.isEmpty()) {
        showDatabaseError(end.failure);
    }
    m_source.countsChanged();
    m_source.updateSelection();
    if (m_environment.defaults.boolean(base::PREFS_GENERAL_SHOW_MOVE_MEDIA_NOTI)) {
        m_environment.utilities.postUserNotification(
            base::text("Message.Move.Completed"), {},
            counted("Message.Move.Completed.Item", "Message.Move.Completed.Items", end.changed));
    }
}

void CollectionChanges::didChangeLabelValue(int label)
{
    store::StoreContext* context = m_environment.library.context();
    const NodeList selected = m_source.selectedNodes();
    if (!context || selected.empty() || isRunning()) {
        return;
    }
    const QStringList labelled = CollectionCommands(*context).setLabel(selected, label);
    if (labelled.isEmpty()) {
        showDatabaseError({});
        return;
    }
    m_source.rebuild();
    m_source.selectCollections(labelled);
}

bool CollectionChanges::reparent(const QStringList& dragItems, const CollectionNode& target)
{
    NodeList dragged;
    for (const QString& id : dragItems) {
        if (const CollectionNode* node = m_source.node(id)) {
            dragged.push_back(node);
        }
    }
    store::StoreContext* context = m_environment.library.context();
    if (dragged.empty() || !context) {
        return false;
    }
    const auto moved = CollectionCommands(*context).reparent(dragged, target.isGroup ? QString() : target.id);
    if (!moved) {
        showDatabaseError(moved.reason());
        return false;
    }
    QTimer::singleShot(0, this, [this, ids = moved.value(), parent = target.id] {
        m_source.rebuild();
        m_source.selectCollections(ids, parent);
        m_environment.utilities.playSoundEffect(kMoveSound, m_environment.defaults);
    });
    return true;
}

void CollectionChanges::smartCollectionEnded(const QVariantMap& result, bool isEdit)
{
    if (!isValidSmartCollection(result) || !m_environment.library.isOpenedDatabase()) {
        return;
    }
    if (isEdit) {
        editSmart(result);
    } else if (const auto place = placeForNewItem(m_source.selectedNodes())) {
        (void)m_source.addItem(newSmartCollection(result), place->parent, false);
    }
}

void CollectionChanges::editSmart(const QVariantMap& result)
{
    const NodeList selected = m_source.selectedNodes();
    if (selected.empty() || selected.front()->type != store::kTypeSmartCollection) {
        return;
    }
    const QString id = selected.front()->id;
    const auto saved =
        CollectionCommands(*m_environment.library.context()).editSmart(*selected.front(), result);
    if (!saved) {
        showDatabaseError(saved.reason());
        return;
    }
    m_source.rebuildAround(id);
    m_source.reopenUserGroup();
    m_source.selectCollections({id});
}

void CollectionChanges::deleteMediaNotification()
{
    if (m_environment.library.isOpenedDatabase()) {
        m_source.rebuild();
        m_environment.utilities.postNotification(base::MOSARO_NOTI_COMPLETED_COLLECTION_DELETED);
    }
}

} // namespace mosaro::organisation
