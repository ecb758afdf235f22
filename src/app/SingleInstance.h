#pragma once

#include <QLocalServer>
#include <QObject>
#include <QString>

class QLocalSocket;

/// What a copy that is started second asks of the one that runs.
enum class SecondStart { ComeForward, NewSearch };

/// Keeps a second copy of the program from running on the same application folder: two would write
/// one options.ini and one log. The copy that comes second asks the first to show itself.
class SingleInstance : public QObject
{
    Q_OBJECT
public:
    explicit SingleInstance(const QString &applicationFolder, QObject *parent = nullptr);

    /// True when this is the only copy; it then answers those that come later. Otherwise the
    /// running copy has been asked to come to the front, and to do what `wish` says there.
    bool Claim(SecondStart wish = SecondStart::ComeForward);

    /// The name by which this copy is known on the machine.
    QString Name() const { return name; }

    /// Whether a Claim that failed met a running copy; otherwise nobody could be reached.
    bool AnotherRuns() const { return anotherRuns; }

Q_SIGNALS:
    /// A second copy was started: come to the front.
    void Activated();
    /// The second copy was started for a new search; follows Activated.
    void SearchWanted();

private:
    void Answer(QLocalSocket *other);

    QLocalServer server;
    QString name;
    bool anotherRuns = false;
};
