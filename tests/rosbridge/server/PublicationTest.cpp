// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "rosbridge/protocol/Codec.h"
#include "rosbridge/server/Publication.h"

#include <QJsonObject>
#include <QtTest>

namespace publication_test {

using rosbridge::server::EncodedMessage;
using rosbridge::server::Encoding;
using rosbridge::server::Publication;

/// Publication: one message, encoded once for each form.
class PublicationTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_frame_holds_the_message_in_its_encoding();
    void a_form_is_encoded_once();
    void the_raw_form_is_made_when_it_is_asked_for();

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
    const EncodedMessage text = publication.frame(QStringLiteral("number"), Encoding::Json);
    QVERIFY(text.encoding == Encoding::Json);
    QCOMPARE(
        rosbridge::protocol::decodeText(text.bytes, nullptr).value_or(QCborMap()).toJsonObject(),
        expected);
    const EncodedMessage binary = publication.frame(QStringLiteral("number"), Encoding::Cbor);
    QVERIFY(binary.encoding == Encoding::Cbor);
    QCOMPARE(rosbridge::protocol::decodeBinary(binary.bytes, nullptr)
                 .value_or(QCborMap())
                 .toJsonObject(),
             expected);
}

void PublicationTest::a_form_is_encoded_once()
{
    const Publication publication(m_topic, m_msg);
    const EncodedMessage first = publication.frame(m_topic, Encoding::Cbor);
    const EncodedMessage other = publication.frame(m_topic, Encoding::Json);
    const EncodedMessage again = publication.frame(m_topic, Encoding::Cbor);
    QVERIFY(again.bytes.constData() == first.bytes.constData());
    QVERIFY(other.bytes != first.bytes);
}

void PublicationTest::the_raw_form_is_made_when_it_is_asked_for()
{
    int made = 0;
    const Publication publication(m_topic, m_msg, [&](const QCborMap& msg) {
        ++made;
        return QCborMap{{QStringLiteral("bytes"), QByteArray::number(msg.size())}};
    });
    publication.frame(m_topic, Encoding::Cbor);
    QCOMPARE(made, 0);
    const EncodedMessage raw = publication.frame(m_topic, Encoding::CborRaw);
    QVERIFY(raw.encoding == Encoding::CborRaw);
    publication.frame(m_topic, Encoding::CborRaw);
    QCOMPARE(made, 1);
    const QCborMap message =
        rosbridge::protocol::decodeBinary(raw.bytes, nullptr).value_or(QCborMap());
    QCOMPARE(message.value(QLatin1String("topic")).toString(), m_topic);
    QCOMPARE(
        message.value(QLatin1String("msg")).toMap().value(QLatin1String("bytes")).toByteArray(),
        QByteArray("1"));
}

TEST_WITHOUT_WINDOWS(PublicationTest)

} // namespace publication_test

#include "PublicationTest.moc"
