#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <functional>
#include <vector>

class QWidget;
struct TourCase;

/// Plays the main job by itself through the real windows: connects, logs in, searches, and looks at
/// what comes back; fetches documents, and makes reports. Documents are not opened: who watches a
/// tour has not asked for a viewer. Each step is printed with the texts that the windows really
/// show; pictures and reports are saved on the way. It ends the program with 0 when every step
/// showed what it must, else 1.
class Tour : public QObject
{
    Q_OBJECT
public:
    /// `cleanUp` runs just before the tour ends the program.
    Tour(const QString &outputFolder, std::function<void()> cleanUp, QObject *parent = nullptr);

    /// Starts to play as soon as events run.
    void Start();

private:
    struct Step
    {
        QString name;
        std::function<bool()> ready; ///< what must be seen before the step acts
        std::function<void()> act;
    };

    void addSessionSteps();
    void addFormSteps();
    void addSearchSteps();
    void addResultsReportSteps();
    void addCaseReportSteps();
    void addPreviewSteps(const QString &picture);
    void addOpenSteps(const QString &results);
    void addCaseSteps(const TourCase &tourCase);
    void addDocumentSteps();
    void addAllDocumentsSteps();
    void showDocument();
    void addDistrictSteps(const QString &kindButton, const TourCase &tourCase);
    void Tick();
    void say(const QString &text);
    void picture(QWidget *window, const QString &name);
    QString reportWithEnding(const QString &ending) const;
    void showReport(const QString &ending, const QByteArray &beginning);
    void fail(const QString &why);
    void end(int exitCode);

    std::vector<Step> steps;
    size_t current = 0;
    int pictures = 0;
    QStringList reports; ///< that have been shown, by their names
    QStringList opened;  ///< what would have been shown by another program
    QString output;
    std::function<void()> cleanUp;
    QTimer timer;
    QElapsedTimer waiting;
};
