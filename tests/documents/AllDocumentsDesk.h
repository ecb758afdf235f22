#pragma once

#include "documents/DocumentDesk.h"
#include "documents/frmAllDocuments.h"

/// A test of the retrieval of all documents of a case.
class AllDocumentsTest : public DocumentTest
{
    Q_OBJECT
protected Q_SLOTS:
    void cleanup() override;

protected:
    inline static const QString caseFolder = u"King 02-2-00123-4/"_s;

    /// One that the court does not give out.
    static DocumentStart Unavailable(const QString &description);
    frmAllDocuments *Pending(const QList<DocumentStart> &starts);
    /// Retrieves them, or goes on in the window that is there.
    void RunAll(const QList<DocumentStart> &starts = {});
    /// The same in a window of its own.
    void RunAnew(const QList<DocumentStart> &starts);
    bool IsOver() const;
    bool FinishAll() const;
    /// The court gives out this body for the document.
    void Serve(const DocumentStart &start, const QByteArray &body);
    void Serve(const QString &description, const QByteArray &body)
    {
        Serve(StartOf(u"5"_s, description), body);
    }
    QString Missing() const;
    /// The cells of documents.csv, for tests whose cells have no commas; without what tells one
    /// document from another of the same cells.
    QList<QStringList> List() const;

    QPointer<frmAllDocuments> all;
};
