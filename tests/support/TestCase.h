#ifndef QUANDREL_TESTCASE_H
#define QUANDREL_TESTCASE_H

#include <QList>
#include <QObject>
#include <QRegularExpression>

/// The base of every test class: a warning that Qt or our code prints during a test function
/// fails that function, unless the function announced it with expectWarning().
class TestCase : public QObject
{
    Q_OBJECT

protected:
    /// A warning whose text matches @p pattern is expected, any number of times, until the
    /// test function ends.
    void expectWarning(const QString& pattern);

private Q_SLOTS:
    void init();
    void cleanup();
};

#endif
