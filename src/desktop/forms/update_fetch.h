#pragma once

#include "core/message.h"

#include <QByteArray>
#include <QNetworkAccessManager>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QUrl>

class QNetworkReply;

namespace orvel {

// Asks a server for the page that lists the current package: one GET with a time limit, beside the event loop. A page
// is read no further than its first package or a megabyte.
class Update_Fetch : public QObject {
    Q_OBJECT

public:
    explicit Update_Fetch(QObject* parent = nullptr);

    // Ends with Finished, also for an address that is empty or a server that does not answer. One at a time: a second
    // call while one is under way does nothing.
    void Start(const QUrl& address);

signals:
    void Finished(const Message& message);

private:
    void Take();
    void Finish();

    QNetworkAccessManager Network;
    QPointer<QNetworkReply> Reply;
    QByteArray Page;
    QTimer Limit;
};

// The address that this build was made with; empty by default.
QUrl Update_Address();

} // namespace orvel
