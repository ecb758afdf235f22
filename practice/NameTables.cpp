#include "practice/NameTables.h"

#include <array>

namespace Practice {
namespace {
constexpr auto surnames = std::to_array<const char16_t *>({
    u"SMITH",      u"JOHNSON",     u"NGUYEN",    u"GARCIA",     u"WILLIAMS",   u"BROWN",
    u"JONES",      u"MILLER",      u"DAVIS",     u"MARTINEZ",   u"ANDERSON",   u"LEE",
    u"WILSON",     u"RODRIGUEZ",   u"HERNANDEZ", u"LOPEZ",      u"THOMPSON",   u"TAYLOR",
    u"MOORE",      u"KIM",         u"JACKSON",   u"MARTIN",     u"WHITE",      u"GONZALEZ",
    u"HARRIS",     u"CLARK",       u"LEWIS",     u"NELSON",     u"WALKER",     u"HALL",
    u"YOUNG",      u"ALLEN",       u"PEREZ",     u"KING",       u"WRIGHT",     u"SANCHEZ",
    u"HILL",       u"SCOTT",       u"GREEN",     u"PETERSON",   u"ADAMS",      u"BAKER",
    u"CAMPBELL",   u"CARTER",      u"MITCHELL",  u"ROBERTS",    u"TRAN",       u"TURNER",
    u"PHILLIPS",   u"RAMIREZ",     u"PARKER",    u"EVANS",      u"EDWARDS",    u"COLLINS",
    u"STEWART",    u"MORRIS",      u"RIVERA",    u"FLORES",     u"COOK",       u"ROGERS",
    u"MURPHY",     u"MORGAN",      u"COOPER",    u"REED",       u"BAILEY",     u"KELLY",
    u"HOWARD",     u"COX",         u"WARD",      u"RICHARDSON", u"WATSON",     u"BROOKS",
    u"GRAY",       u"BENNETT",     u"WOOD",      u"JAMES",      u"REYES",      u"CRUZ",
    u"HUGHES",     u"PRICE",       u"MYERS",     u"LONG",       u"FOSTER",     u"SANDERS",
    u"ROSS",       u"MORALES",     u"POWELL",    u"SULLIVAN",   u"RUSSELL",    u"ORTIZ",
    u"JENKINS",    u"PERRY",       u"BUTLER",    u"BARNES",     u"FISHER",     u"HENDERSON",
    u"COLEMAN",    u"SIMMONS",     u"PATTERSON", u"JORDAN",     u"REYNOLDS",   u"HAMILTON",
    u"GRAHAM",     u"GONZALES",    u"ALEXANDER", u"RAMOS",      u"WALLACE",    u"GRIFFIN",
    u"WEST",       u"COLE",        u"HAYES",     u"CHAVEZ",     u"GIBSON",     u"BRYANT",
    u"ELLIS",      u"STEVENS",     u"MURRAY",    u"FORD",       u"MARSHALL",   u"OWENS",
    u"MCDONALD",   u"HARRISON",    u"RUIZ",      u"KENNEDY",    u"WELLS",      u"ALVAREZ",
    u"WOODS",      u"MENDOZA",     u"CASTILLO",  u"OLSON",      u"HANSEN",     u"LARSON",
    u"CARLSON",    u"JENSEN",      u"OLSEN",     u"WEBB",       u"WASHINGTON", u"TUCKER",
    u"FREEMAN",    u"BURNS",       u"HENRY",     u"VASQUEZ",    u"SNYDER",     u"SIMPSON",
    u"CRAWFORD",   u"JIMENEZ",     u"PORTER",    u"MASON",      u"SHAW",       u"GORDON",
    u"WAGNER",     u"HUNTER",      u"ROMERO",    u"HICKS",      u"DIXON",      u"HUNT",
    u"PALMER",     u"ROBERTSON",   u"BLACK",     u"HOLMES",     u"STONE",      u"MEYER",
    u"BOYD",       u"MILLS",       u"WARREN",    u"FOX",        u"ROSE",       u"RICE",
    u"MORENO",     u"SCHMIDT",     u"PATEL",     u"FERGUSON",   u"NICHOLS",    u"HERRERA",
    u"MEDINA",     u"RYAN",        u"FERNANDEZ", u"WEAVER",     u"DANIELS",    u"STEPHENS",
    u"GARDNER",    u"PAYNE",       u"KELLEY",    u"DUNN",       u"PIERCE",     u"ARNOLD",
    u"SPENCER",    u"PETERS",      u"HAWKINS",   u"GRANT",      u"HANSON",     u"CASTRO",
    u"HOFFMAN",    u"HART",        u"ELLIOTT",   u"CUNNINGHAM", u"KNIGHT",     u"BRADLEY",
    u"CARROLL",    u"HUDSON",      u"DUNCAN",    u"ARMSTRONG",  u"BERRY",      u"ANDREWS",
    u"JOHNSTON",   u"RAY",         u"LANE",      u"RILEY",      u"CARPENTER",  u"PERKINS",
    u"AGUILAR",    u"SILVA",       u"RICHARDS",  u"WILLIS",     u"MATTHEWS",   u"CHAPMAN",
    u"LAWRENCE",   u"GARZA",       u"VARGAS",    u"WATKINS",    u"WHEELER",    u"LARSEN",
    u"CARLSEN",    u"GREENE",      u"HARPER",    u"GEORGE",     u"CHANG",      u"WONG",
    u"CHEN",       u"PHAM",        u"LE",        u"PARK",       u"YAMAMOTO",   u"TANAKA",
    u"SINGH",      u"KAUR",        u"SANTOS",    u"DELACRUZ",   u"AQUINO",     u"CHRISTENSEN",
    u"SORENSEN",   u"ERICKSON",    u"GUSTAFSON", u"LINDSTROM",  u"LUNDQUIST",  u"SWANSON",
    u"BERGSTROM",  u"HAUGEN",      u"KNUTSON",   u"THORSON",    u"NYBERG",     u"ENGSTROM",
    u"FINCH",      u"HOLLOWAY",    u"WHITAKER",  u"MCCARTHY",   u"MCLAUGHLIN", u"MCKINNEY",
    u"FITZGERALD", u"KOWALSKI",    u"NOVAK",     u"IVANOV",     u"PETROV",     u"KOVALENKO",
    u"SHEVCHENKO", u"TKACHENKO",   u"ABDI",      u"HASSAN",     u"AHMED",      u"MOHAMED",
    u"TESFAYE",    u"GEBRE",       u"BEKELE",    u"HADDAD",     u"NAKAMURA",   u"SATO",
    u"WATANABE",   u"TAKAHASHI",   u"INOUYE",    u"SAKAI",      u"CHOI",       u"LIM",
    u"CHO",        u"KANG",        u"YOON",      u"HUANG",      u"LIN",        u"WU",
    u"ZHANG",      u"LIU",         u"YANG",      u"ZHAO",       u"HUYNH",      u"VO",
    u"DANG",       u"BUI",         u"O'BRIEN",   u"D'ANGELO",   u"VAN DYKE",   u"DE LA ROSA",
    u"ST. JOHN",   u"SMITH-JONES", u"MUÑOZ",     u"NUÑEZ",      u"BJÖRK",      u"LEFÈVRE",
    u"ŠIMEK",      u"QUILCENE",    u"SKYKOMISH", u"ZYLSTRA",    u"YBARRA",     u"UTTERBACK",
    u"XIONG",
});

constexpr auto firstNames = std::to_array<const char16_t *>({
    u"JAMES",   u"MARY",       u"ROBERT",      u"PATRICIA",  u"JOHN",      u"JENNIFER",
    u"MICHAEL", u"LINDA",      u"DAVID",       u"ELIZABETH", u"WILLIAM",   u"BARBARA",
    u"RICHARD", u"SUSAN",      u"JOSEPH",      u"JESSICA",   u"THOMAS",    u"SARAH",
    u"CHARLES", u"KAREN",      u"CHRISTOPHER", u"LISA",      u"DANIEL",    u"NANCY",
    u"MATTHEW", u"BETTY",      u"ANTHONY",     u"MARGARET",  u"MARK",      u"SANDRA",
    u"DONALD",  u"ASHLEY",     u"STEVEN",      u"KIMBERLY",  u"PAUL",      u"EMILY",
    u"ANDREW",  u"DONNA",      u"JOSHUA",      u"MICHELLE",  u"KENNETH",   u"CAROL",
    u"KEVIN",   u"AMANDA",     u"BRIAN",       u"MELISSA",   u"GEORGE",    u"DEBORAH",
    u"TIMOTHY", u"STEPHANIE",  u"RONALD",      u"REBECCA",   u"EDWARD",    u"SHARON",
    u"JASON",   u"LAURA",      u"JEFFREY",     u"CYNTHIA",   u"RYAN",      u"KATHLEEN",
    u"JACOB",   u"AMY",        u"GARY",        u"ANGELA",    u"NICHOLAS",  u"SHIRLEY",
    u"ERIC",    u"ANNA",       u"JONATHAN",    u"BRENDA",    u"STEPHEN",   u"PAMELA",
    u"LARRY",   u"EMMA",       u"JUSTIN",      u"NICOLE",    u"SCOTT",     u"HELEN",
    u"BRANDON", u"SAMANTHA",   u"BENJAMIN",    u"KATHERINE", u"SAMUEL",    u"CHRISTINE",
    u"GREGORY", u"DEBRA",      u"FRANK",       u"RACHEL",    u"ALEXANDER", u"CAROLYN",
    u"RAYMOND", u"JANET",      u"PATRICK",     u"CATHERINE", u"JACK",      u"MARIA",
    u"DENNIS",  u"HEATHER",    u"JERRY",       u"DIANE",     u"TYLER",     u"RUTH",
    u"AARON",   u"JULIE",      u"JOSE",        u"OLIVIA",    u"ADAM",      u"JOYCE",
    u"NATHAN",  u"VIRGINIA",   u"HENRY",       u"VICTORIA",  u"DOUGLAS",   u"KELLY",
    u"ZACHARY", u"LAUREN",     u"PETER",       u"CHRISTINA", u"KYLE",      u"JOAN",
    u"ETHAN",   u"EVELYN",     u"WALTER",      u"JUDITH",    u"NOAH",      u"MEGAN",
    u"JEREMY",  u"ANDREA",     u"CHRISTIAN",   u"CHERYL",    u"KEITH",     u"HANNAH",
    u"ROGER",   u"JACQUELINE", u"TERRY",       u"MARTHA",    u"GERALD",    u"GLORIA",
    u"HAROLD",  u"TERESA",     u"SEAN",        u"ANN",       u"AUSTIN",    u"SARA",
    u"CARL",    u"MADISON",    u"ARTHUR",      u"FRANCES",   u"LAWRENCE",  u"KATHRYN",
    u"DYLAN",   u"JANICE",     u"JESSE",       u"JEAN",      u"JORDAN",    u"ABIGAIL",
    u"BRYAN",   u"ALICE",      u"BILLY",       u"JULIA",     u"JOE",       u"JUDY",
    u"BRUCE",   u"SOPHIA",     u"GABRIEL",     u"GRACE",     u"LOGAN",     u"DENISE",
    u"ALBERT",  u"AMBER",      u"WILLIE",      u"DORIS",     u"ALAN",      u"MARILYN",
    u"JUAN",    u"DANIELLE",   u"WAYNE",       u"BEVERLY",   u"ELIJAH",    u"ISABELLA",
    u"RANDY",   u"THERESA",    u"ROY",         u"DIANA",     u"VINCENT",   u"NATALIE",
    u"RALPH",   u"BRITTANY",   u"EUGENE",      u"CHARLOTTE", u"RUSSELL",   u"MARIE",
    u"BOBBY",   u"KAYLA",      u"MASON",       u"ALEXIS",    u"PHILIP",    u"LORI",
    u"JOHNNY",  u"JOHNATHAN",  u"LARS",        u"INGRID",    u"BJORN",     u"ASTRID",
    u"MINH",    u"LINH",       u"THUY",        u"HOANG",     u"CARLOS",    u"LUIS",
    u"JORGE",   u"ROSA",       u"GUADALUPE",   u"HYUN",      u"JI-YOUNG",  u"MEI",
    u"WEI",     u"AMIR",       u"FATIMA",      u"YUSUF",     u"AMINA",     u"PRIYA",
    u"ARJUN",   u"OLGA",       u"DMITRI",      u"SVETLANA",  u"RENÉ",      u"JOSÉ",
    u"ZOË",     u"SIOBHÁN",    u"D'ANDRE",     u"MARY-ANN",  u"JO",        u"TY",
    u"AL",
});

constexpr auto businessHeads = std::to_array<const char16_t *>({
    u"CASCADE",          u"EVERGREEN",   u"RAINIER",      u"PUGET",       u"OLYMPIC",
    u"PALOUSE",          u"COLUMBIA",    u"SKAGIT",       u"METHOW",      u"WENATCHEE",
    u"CHINOOK",          u"SALISH",      u"ORCAS",        u"HARBOR",      u"SUMMIT",
    u"NORTHWEST",        u"PACIFIC",     u"EMERALD",      u"INLAND",      u"BLUE MOUNTAIN",
    u"THREE RIVERS",     u"CEDAR CREEK", u"SILVER LAKE",  u"GOLDEN WEST", u"FOUR CORNERS",
    u"PIONEER",          u"FRONTIER",    u"LIBERTY",      u"HERITAGE",    u"SMITH & SONS",
    u"JOHNSON BROTHERS", u"NELSON",      u"GARCIA & LEE", u"BAKER",       u"ALDER STREET",
    u"FIRST AVENUE",     u"UNION",       u"APEX",         u"BEACON",      u"LIGHTHOUSE",
});

constexpr auto businessTrades = std::to_array<const char16_t *>({
    u"PLUMBING",      u"ROOFING",     u"ELECTRIC",        u"CONSTRUCTION", u"PROPERTIES",
    u"REALTY",        u"LOGGING",     u"ORCHARDS",        u"DAIRY",        u"SEAFOODS",
    u"TRUCKING",      u"TOWING",      u"AUTO SALES",      u"AUTO REPAIR",  u"MEDICAL GROUP",
    u"DENTAL CLINIC", u"COLLECTIONS", u"CREDIT SERVICES", u"SAVINGS BANK", u"INSURANCE",
    u"TITLE COMPANY", u"LANDSCAPING", u"MACHINE WORKS",   u"MARINE",       u"HARDWARE",
    u"FEED & SEED",   u"BREWING",     u"BAKERY",          u"CAFE",         u"RENTALS",
    u"APARTMENTS",    u"STORAGE",     u"LUMBER",          u"PAINTING",     u"DRYWALL",
    u"HEATING",       u"SOFTWARE",    u"CONSULTING",
});

constexpr auto businessForms = std::to_array<const char16_t *>({
    u"INC",
    u"LLC",
    u"CO",
    u"CORP",
    u"LP",
    u"PS",
});
} // namespace

std::span<const char16_t *const> Surnames()
{
    return surnames;
}

std::span<const char16_t *const> FirstNames()
{
    return firstNames;
}

std::span<const char16_t *const> BusinessHeads()
{
    return businessHeads;
}

std::span<const char16_t *const> BusinessTrades()
{
    return businessTrades;
}

std::span<const char16_t *const> BusinessForms()
{
    return businessForms;
}

Person MadeUpNamesake(const QString &last, qint64 number)
{
    const auto index = static_cast<std::size_t>(number);
    Person person;
    person.last = last;
    person.first = QString::fromUtf16(firstNames[index % firstNames.size()]);
    person.middle = QChar(static_cast<char16_t>(u'A' + index / firstNames.size() % 26));
    return person;
}
} // namespace Practice
