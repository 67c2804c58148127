#ifndef HOST_WORKBENCH_FAILURECARD_H
#define HOST_WORKBENCH_FAILURECARD_H

#include <QFrame>

namespace host::workbench {

struct Failure;

/// Stands in the window where a plugin, or one of its widgets, is missing: what happened, why,
/// what to do, and the file. All of it can be selected and copied.
class FailureCard : public QFrame
{
    Q_OBJECT

public:
    explicit FailureCard(const Failure& failure, QWidget* parent = nullptr);
};

} // namespace host::workbench

#endif
