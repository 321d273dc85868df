#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QString>

namespace lumeo {

class AppState;

/// Reports the end of work that took so long that the user may do something else by now. Main thread only.
class LongWork : public QObject {
    Q_OBJECT

public:
    /// Work of at least `seconds` counts as long. `state` must outlive this object.
    explicit LongWork(const AppState& state, double seconds = 10, QObject* parent = nullptr);

signals:
    void ended(const QString& title, const QString& text);

private:
    void tell(const QString& title, const QString& text);

    const AppState& state_;
    double seconds_;
    QElapsedTimer since_; ///< the start of the latest work; usually there is only one
};

} // namespace lumeo
