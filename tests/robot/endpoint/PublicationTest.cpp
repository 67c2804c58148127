#include "TestCase.h"

#include "robot/endpoint/Publication.h"
#include "robot/link/Message.h"

#include <QJsonObject>
#include <QtTest>

using robot::Encoding;
using robot::Frame;
using robot::Publication;

/// Publication: one message, encoded once for each form.
class PublicationTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_frame_holds_the_message_in_its_encoding();
    void a_form_is_encoded_once();

private:
    const QCborMap m_msg{{QStringLiteral("data"), 7}};
    const QString m_topic = QStringLiteral("/number");
};

void PublicationTest::a_frame_holds_the_message_in_its_encoding()
{
    const Publication publication(m_topic, m_msg);
    const QJsonObject expected{{QStringLiteral("op"), QStringLiteral("publish")},
                               {QStringLiteral("topic"), QStringLiteral("number")},
                               {QStringLiteral("msg"), m_msg.toJsonObject()}};
    const Frame text = publication.frame(QStringLiteral("number"), Encoding::Json);
    QVERIFY(text.encoding == Encoding::Json);
    QCOMPARE(robot::link::decodeText(text.bytes, nullptr).value_or(QCborMap()).toJsonObject(),
             expected);
    const Frame binary = publication.frame(QStringLiteral("number"), Encoding::Cbor);
    QVERIFY(binary.encoding == Encoding::Cbor);
    QCOMPARE(robot::link::decodeBinary(binary.bytes, nullptr).value_or(QCborMap()).toJsonObject(),
             expected);
}

void PublicationTest::a_form_is_encoded_once()
{
    const Publication publication(m_topic, m_msg);
    const Frame first = publication.frame(m_topic, Encoding::Cbor);
    const Frame other = publication.frame(m_topic, Encoding::Json);
    const Frame again = publication.frame(m_topic, Encoding::Cbor);
    QVERIFY(again.bytes.constData() == first.bytes.constData());
    QVERIFY(other.bytes != first.bytes);
}

QTEST_GUILESS_MAIN(PublicationTest)

#include "PublicationTest.moc"
