// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "rosbridge/server/Request.h"

#include <QCborArray>
#include <QtTest>

namespace request_test {

using rosbridge::server::Request;

/// Request: the fields of a message, and what is said of unfit ones.
class RequestTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void fit_fields_are_read();
    void missing_fields_are_empty_where_they_may_be();
    void an_unfit_field_is_named_data();
    void an_unfit_field_is_named();
    void the_first_error_stands();

private:
    static QCborMap message(const char* field, const QCborValue& value)
    {
        QCborMap map{{QStringLiteral("op"), QStringLiteral("test")}};
        map.insert(QLatin1String(field), value);
        return map;
    }
};

void RequestTest::fit_fields_are_read()
{
    const QCborMap object{{QStringLiteral("x"), 1}};
    Request request({{QStringLiteral("op"), QStringLiteral("test")},
                     {QStringLiteral("id"), 7},
                     {QStringLiteral("text"), QStringLiteral("1234567890")},
                     {QStringLiteral("whole"), 5},
                     {QStringLiteral("double"), 3.0},
                     {QStringLiteral("object"), object}},
                    10);
    QCOMPARE(request.op(), QStringLiteral("test"));
    QCOMPARE(request.id(), QCborValue(7));
    QCOMPARE(request.text("text"), QStringLiteral("1234567890"));
    QCOMPARE(request.optionalText("text"), QStringLiteral("1234567890"));
    QCOMPARE(request.optionalCount("whole", 5), qint64(5));
    QCOMPARE(request.optionalCount("double", 5), qint64(3));
    QCOMPARE(request.object("object"), object);
    QCOMPARE(request.value("whole"), QCborValue(5));
    QCOMPARE(request.error(), QString());
    QCOMPARE(Request(message("id", QStringLiteral("fred")), 10).id(),
             QCborValue(QStringLiteral("fred")));
}

void RequestTest::missing_fields_are_empty_where_they_may_be()
{
    Request request(message("null", nullptr), 10);
    for (const char* field : {"null", "missing"}) {
        QCOMPARE(request.optionalText(field), QString());
        QCOMPARE(request.optionalCount(field, 5), qint64(0));
    }
    QVERIFY(request.value("missing").isUndefined());
    QVERIFY(request.id().isUndefined());
    QCOMPARE(request.error(), QString());
}

void RequestTest::an_unfit_field_is_named_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QCborValue>("value");
    const QCborValue missing(QCborValue::Undefined);
    QTest::newRow("text missing") << "text" << missing;
    QTest::newRow("text empty") << "text" << QCborValue(QString());
    QTest::newRow("text too long") << "text" << QCborValue(QStringLiteral("12345678901"));
    QTest::newRow("text is a number") << "text" << QCborValue(7);
    QTest::newRow("optional text is a list") << "optionalText" << QCborValue(QCborArray());
    QTest::newRow("count negative") << "count" << QCborValue(-1);
    QTest::newRow("count too large") << "count" << QCborValue(6);
    QTest::newRow("count far too large") << "count" << QCborValue(1e300);
    QTest::newRow("count not whole") << "count" << QCborValue(1.5);
    QTest::newRow("count no number") << "count" << QCborValue(qQNaN());
    QTest::newRow("count is text") << "count" << QCborValue(QStringLiteral("5"));
    QTest::newRow("count is true") << "count" << QCborValue(true);
    QTest::newRow("object missing") << "object" << missing;
    QTest::newRow("object is a list") << "object" << QCborValue(QCborArray());
    QTest::newRow("id is an object") << "id" << QCborValue(QCborMap());
    QTest::newRow("id is true") << "id" << QCborValue(true);
    QTest::newRow("id no number") << "id" << QCborValue(qQNaN());
    QTest::newRow("id infinite") << "id" << QCborValue(qInf());
    QTest::newRow("id too long") << "id" << QCborValue(QStringLiteral("12345678901"));
    QTest::newRow("op too long") << "op" << QCborValue(QStringLiteral("12345678901"));
    QTest::newRow("op empty") << "op" << QCborValue(QString());
}

void RequestTest::an_unfit_field_is_named()
{
    QFETCH(QString, kind);
    QFETCH(QCborValue, value);
    const QByteArray field = kind.toLatin1();
    Request request(message(field.constData(), value), 10);
    if (kind == QLatin1String("text"))
        QCOMPARE(request.text("text"), QString());
    else if (kind == QLatin1String("optionalText"))
        QCOMPARE(request.optionalText("optionalText"), QString());
    else if (kind == QLatin1String("count"))
        QCOMPARE(request.optionalCount("count", 5), qint64(0));
    else if (kind == QLatin1String("object"))
        QCOMPARE(request.object("object"), QCborMap());
    QVERIFY(request.id().isUndefined());
    QVERIFY2(request.error().startsWith(kind + QLatin1Char(' ')), qPrintable(request.error()));
}

void RequestTest::the_first_error_stands()
{
    Request request(message("x", 1), 10);
    request.fail(QStringLiteral("one"));
    request.text("x");
    request.fail(QStringLiteral("two"));
    QCOMPARE(request.error(), QStringLiteral("one"));
}

TEST_WITHOUT_WINDOWS(RequestTest)

} // namespace request_test

#include "RequestTest.moc"
