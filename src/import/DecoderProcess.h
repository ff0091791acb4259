#pragma once

#include "base/Result.h"
#include "import/ChildSpawn.h"

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>
#include <QStringList>

namespace mosaro::importing {

/// A decoder that draws many documents, as decoders/DecoderProtocol.h says; starting one costs more than an
/// icon does. It starts with the first document, is replaced now and then, so that nothing can grow in it,
/// and after any failure but that of an unreadable document. It ends with this object, which belongs to one
/// thread and must not outlive it: the decoder ends with the thread, too.
class DecoderProcess {
public:
    explicit DecoderProcess(QString program, QStringList arguments = {});
    ~DecoderProcess();
    DecoderProcess(const DecoderProcess&) = delete;
    DecoderProcess& operator=(const DecoderProcess&) = delete;

    /// Blocks, without an event loop. The seconds are for this document; the limits of memory and of files
    /// that are written hold for a decoder as it is started. It may answer no more than a picture of the
    /// size.
    [[nodiscard]] base::Result<QImage> draw(const QByteArray& document, QSize size,
                                            const ChildLimits& limits);

private:
    [[nodiscard]] bool isReady() const;
    bool start(ChildLimits limits);
    void end();

    QString m_program;
    QStringList m_arguments;
    Descriptor m_socket;
    pid_t m_child = -1;
    int m_documents = 0; ///< That the running decoder was given.
};

} // namespace mosaro::importing
