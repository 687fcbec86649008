#include "desktop/forms/update_fetch.h"
#include "desktop/forms/versionsinfo.h"
#include "ui/forms/help_assistant.h"
#include "window_test.h"

#include <gtest/gtest.h>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QVBoxLayout>

namespace orvel {

namespace {

class Help_Assistant_Test : public Window_Test {
protected:
    Help_Assistant_Test()
    {
        The_Session.Program.Help_Text = {"zero\r\n", "one\r\nsecond line\r\n"};
        Form.resize(300, 200);
        Assistant = new Help_Assistant(The_Session, Form);
        Button = new QPushButton("control");
        auto* column = new QVBoxLayout(&Form);
        column->addWidget(Button);
        column->addWidget(Assistant->Switch());
        Assistant->Attach(Button, 1);
        Form.show();
    }

    QLabel& Box() { return *Find<QLabel>(Form, "Kurzinfo"); }
    void Move_Over(QWidget* control)
    {
        QMouseEvent move(QEvent::MouseMove, QPointF(2, 2), control->mapToGlobal(QPointF(2, 2)), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(control, &move);
    }

    QWidget Form;
    Help_Assistant* Assistant = nullptr;
    QPushButton* Button = nullptr;
};

// A server that answers one request with bytes, as many times as asked for.
class Small_Server : public QTcpServer {
public:
    Small_Server(const QByteArray& answer, int times = 1)
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this, answer, times] {
            QTcpSocket* client = nextPendingConnection();
            connect(client, &QTcpSocket::bytesWritten, this, [this](qint64 bytes) { Sent += bytes; });
            connect(client, &QTcpSocket::readyRead, this, [this, client, answer, times] {
                client->readAll();
                for (int i = 0; i < times; ++i)
                    client->write(answer);
                client->disconnectFromHost();
            });
        });
    }
    QUrl Address() const { return QUrl(QString("http://127.0.0.1:%1/download/").arg(serverPort())); }
    qint64 Sent = 0;
};

Message Finished(const QUrl& address, int patience = 8000)
{
    Update_Fetch fetch;
    Message told;
    bool ended = false;
    QObject::connect(&fetch, &Update_Fetch::Finished, [&](const Message& message) {
        told = message;
        ended = true;
    });
    fetch.Start(address);
    EXPECT_TRUE(QTest::qWaitFor([&] { return ended; }, patience));
    return told;
}

QByteArray Page(const QByteArray& text)
{
    return "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(text.size()) + "\r\nConnection: close\r\n\r\n" +
           text;
}

constexpr const char* Problem = "Connection to the internet not successfull!\r\n";

} // namespace

TEST_F(Help_Assistant_Test, Says_Nothing_While_The_Help_Is_Off)
{
    Move_Over(Button);

    EXPECT_FALSE(Box().isVisible());
}

TEST_F(Help_Assistant_Test, Shows_The_Text_Of_The_Control_Inside_The_Form_And_Hides_It_Again)
{
    Click<QToolButton>(Form, "Fragen_0");
    EXPECT_TRUE(The_Session.Program.Online_Help);

    Move_Over(Button);

    EXPECT_TRUE(Box().isVisible());
    EXPECT_EQ(Box().text(), "one\nsecond line");
    EXPECT_TRUE(Form.rect().contains(Box().geometry()));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !Box().isVisible(); }, 3000));
}

TEST_F(Help_Assistant_Test, The_Pictures_Change_Places_And_Hint_With_The_Help_Off_Too)
{
    Move_Over(Find<QToolButton>(Form, "Fragen_0"));
    EXPECT_EQ(Box().text(), "Click to swith on the online help.");

    Click<QToolButton>(Form, "Fragen_0");
    EXPECT_FALSE(Find<QToolButton>(Form, "Fragen_0")->isVisible());
    Move_Over(Find<QToolButton>(Form, "Fragen_1"));
    EXPECT_EQ(Box().text(), "Click to swith off the online help.");

    Click<QToolButton>(Form, "Fragen_1");
    EXPECT_FALSE(The_Session.Program.Online_Help);
}

TEST_F(Help_Assistant_Test, The_Pictures_Follow_A_Switch_On_Another_Form)
{
    The_Session.Program.Online_Help = true; // as another form leaves it

    QEvent back(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&Form, &back);

    EXPECT_FALSE(Find<QToolButton>(Form, "Fragen_0")->isVisible());
    EXPECT_TRUE(Find<QToolButton>(Form, "Fragen_1")->isVisible());
}

TEST_F(Help_Assistant_Test, Moving_Over_The_Bare_Form_Shows_Nothing)
{
    The_Session.Program.Online_Help = true;

    Move_Over(&Form);

    EXPECT_FALSE(Box().isVisible());
}

TEST_F(Help_Assistant_Test, A_Number_Without_A_Text_Is_Silent)
{
    The_Session.Program.Online_Help = true;
    The_Session.Program.Help_Text.clear();

    Move_Over(Button);

    EXPECT_FALSE(Box().isVisible());
}

TEST(Update_Fetch, Judges_The_Page_Of_A_Server)
{
    Small_Server newer(Page("<a href=\"ORVELSUITE_release_20990101.zip\">")),
        same(Page("<a href=\"ORVELSUITE_release_" + QByteArray(Release_Date.data()) + ".zip\">")),
        older(Page("<a href=\"ORVELSUITE_release_20010101.zip\">")), at_the_begin(Page("20990101.zip"));
    EXPECT_EQ(Finished(newer.Address()).Title, "Update available!");
    EXPECT_EQ(Finished(same.Address()).Text, "You have the latest version of the software.");
    EXPECT_EQ(Finished(older.Address()).Text, "You are using an unofficial version of the software.\r\n");
    EXPECT_EQ(Finished(at_the_begin.Address()).Text, Problem); // within the first 25 characters
}

TEST(Update_Fetch, Takes_A_Page_Without_A_Package_And_A_404_As_A_Connection_Problem)
{
    Small_Server without(Page("nothing here")),
        missing("HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");

    EXPECT_EQ(Finished(without.Address()).Text, Problem);
    EXPECT_EQ(Finished(missing.Address()).Text, Problem);
}

TEST(Update_Fetch, Stops_Reading_A_Page_Without_An_End)
{
    QByteArray head = "HTTP/1.1 200 OK\r\nContent-Length: 104857600\r\nConnection: close\r\n\r\n";
    Small_Server endless(head + QByteArray(qsizetype(4) << 20, 'x'), 25);

    EXPECT_EQ(Finished(endless.Address()).Text, Problem);
    EXPECT_LT(endless.Sent, 52428800); // of 100 MB; what is more lay in no buffer
}

TEST(Update_Fetch, Gives_Up_On_A_Server_That_Does_Not_Answer)
{
    QTcpServer silent;
    silent.listen(QHostAddress::LocalHost);

    EXPECT_EQ(Finished(QUrl(QString("http://127.0.0.1:%1/").arg(silent.serverPort()))).Text, Problem);
}

TEST(Update_Fetch, Gives_Up_On_A_Server_That_Sends_A_Byte_Now_And_Then)
{
    QTcpServer slow;
    slow.listen(QHostAddress::LocalHost);
    QTimer drip;
    QObject::connect(&slow, &QTcpServer::newConnection, [&] {
        QTcpSocket* client = slow.nextPendingConnection();
        client->write("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\n");
        drip.callOnTimeout(client, [client] { client->write("x"); });
        drip.start(200);
    });

    EXPECT_EQ(Finished(QUrl(QString("http://127.0.0.1:%1/").arg(slow.serverPort()))).Text, Problem);
}

TEST(Versionsinfo, Shows_The_Notes_With_Their_Own_Words)
{
    Versionsinfo form;

    EXPECT_EQ(form.windowTitle(), "Release info");
    EXPECT_EQ(Find<QLabel>(form, "Label2")->text(), "Pestcidie Leaching Model");
    EXPECT_TRUE(Find<QPlainTextEdit>(form, "Text1")
                    ->toPlainText()
                    .startsWith("ORVELSUITE " + QString::fromLatin1(Program_Version.data()) + " ("));
    EXPECT_EQ(Find<QLabel>(form, "Versionsangabe")->text(),
              "ORVELSUITE " + QString::fromLatin1(Program_Version.data()));
    EXPECT_TRUE(Find<QPlainTextEdit>(form, "Text1")->isReadOnly());
}

} // namespace orvel
