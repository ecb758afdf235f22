#include "courts/DiscisCourts.h"

#include "core/Log.h"
#include "core/RunTimeError.h"
#include "core/TextUtilities.h"
#include "courts/ListFile.h"

using namespace Qt::StringLiterals;

namespace {
QList<clsDiscisCourts> courts;

clsDiscisCourts courtOfLine(const QString &line)
{
    const QStringList fields = line.split(u',');
    clsDiscisCourts court;
    court.CourtIndex = TrimBlanks(FieldAt(fields, 0));
    court.CourtCounty = TrimBlanks(FieldAt(fields, 1));
    court.CourtCode = TrimBlanks(FieldAt(fields, 2));
    court.CourtCity = TrimBlanks(FieldAt(fields, 3));
    court.CourtName = TrimBlanks(FieldAt(fields, 4));
    court.CourtType = line.contains(u"(Municipal)") ? u"Municipal"_s : u"District"_s;
    return court;
}
} // namespace

QString clsDiscisCourts::ListText() const
{
    return CourtName + u" ("_s + CourtCode + u')';
}

const QList<clsDiscisCourts> &DiscisCourts()
{
    return courts;
}

const clsDiscisCourts *DiscisCourtByCode(const QString &code)
{
    for (const clsDiscisCourts &court : courts) {
        if (court.CourtCode == code)
            return &court;
    }
    return nullptr;
}

int LoadDiscisCourts()
{
    courts.clear();
    const QStringList lines = ReadListFile(u"wadisciscts.txt"_s, 0);
    try {
        for (const QString &line : lines) {
            const clsDiscisCourts court = courtOfLine(line);
            if (DiscisCourtByCode(court.CourtCode))
                throw RunTimeError(457, u"Two courts have the code "_s + court.CourtCode);
            courts.append(court);
        }
    } catch (const RunTimeError &error) {
        WriteAppInfo(u"Error in LoadDiscisCourts() after "_s + QString::number(courts.size())
                     + u" courts: "_s + error.Description());
    }
    return static_cast<int>(courts.size());
}
