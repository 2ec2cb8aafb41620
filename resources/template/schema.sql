-- The tables of a data file of format 06.01.01, with their keys.
--
-- Every column but the keys may be null, and none has a default: a column that was never written reads as 0 or as
-- the empty text. Types: SMALLINT 16 bits, INTEGER 32 bits, REAL a 32-bit float widened, CURRENCY dollars with at
-- most four decimals, TEXT in UTF-8. AUTOINCREMENT stands where the engine allots the key; elsewhere the program does.

-- "QEL6": lets file managers know a data file by its first bytes. The program itself does not test it.
PRAGMA application_id = 0x51454C36;
PRAGMA encoding = 'UTF-8';
PRAGMA page_size = 4096;

-- Named values of the file, always as text. Names are not case-sensitive.
CREATE TABLE Properties (
    Property TEXT NOT NULL PRIMARY KEY COLLATE NOCASE,
    Value TEXT
);

-- Fixed values, topics, alternatives and threatened items: named texts, listed under the key of their group.
CREATE TABLE Items (
    ItemKey INTEGER PRIMARY KEY,
    ItemName TEXT,
    Heading TEXT,
    Body TEXT,
    ItemText TEXT,
    ParentKey INTEGER,
    ChildIndex INTEGER
);

-- Two trees of linked rows: objectives under row 1, safety issues under row 2.
CREATE TABLE Objectives (
    "Key" INTEGER PRIMARY KEY AUTOINCREMENT,
    Name TEXT,
    Explanation TEXT,
    ParentKey INTEGER,
    ChildKey INTEGER,
    SiblingKey INTEGER,
    Priority INTEGER
);

-- Predicted ends of the fire: Target and Fallback of each alternative, and the shared Extreme one under key 0.
CREATE TABLE Outcomes (
    ItemKey INTEGER PRIMARY KEY,
    ItemName TEXT,
    ParentKey INTEGER,
    ChildIndex INTEGER,
    Description TEXT,
    FireSize REAL,
    ContainTime INTEGER,
    ControlTime INTEGER,
    Success REAL,
    SuccessRationale TEXT,
    DailyContainCost REAL,
    DailyControlCost REAL,
    AdjustedCost CURRENCY,
    CostSource INTEGER,
    CostRationale TEXT
);

-- Ratings of outcomes, 0 to 10. The criterion is a row of Objectives.
CREATE TABLE Scores (
    OutcomeKey INTEGER,
    CriterionKey INTEGER,
    Value REAL,
    Description TEXT,
    PRIMARY KEY (OutcomeKey, CriterionKey)
) WITHOUT ROWID;

-- How an outcome's burned acres divide over land units and the six fire intensity levels.
CREATE TABLE OutcomeFMZs (
    OutcomeKey INTEGER,
    FMZKey INTEGER,
    Portion INTEGER,
    FIL1Portion INTEGER,
    FIL2Portion INTEGER,
    FIL3Portion INTEGER,
    FIL4Portion INTEGER,
    FIL5Portion INTEGER,
    FIL6Portion INTEGER,
    PRIMARY KEY (OutcomeKey, FMZKey)
) WITHOUT ROWID;

-- What an outcome costs the owner of a threatened item.
CREATE TABLE ItemImpacts (
    OutcomeKey INTEGER,
    ItemKey INTEGER,
    ItemLoss CURRENCY,
    PRIMARY KEY (OutcomeKey, ItemKey)
) WITHOUT ROWID;

-- What a threatened item could lose at most.
CREATE TABLE ValuesAtRisk (
    ItemKey INTEGER PRIMARY KEY,
    PotentialLoss REAL,
    Probability SMALLINT
);

-- How far an outcome protects a threatened item, in percent.
CREATE TABLE ValuesProtected (
    OutcomeKey INTEGER,
    ItemKey INTEGER,
    Protection SMALLINT,
    Description TEXT,
    PRIMARY KEY (OutcomeKey, ItemKey)
) WITHOUT ROWID;

-- The list of suppression resources and what a unit of each costs.
CREATE TABLE SRTypes (
    ItemKey INTEGER PRIMARY KEY AUTOINCREMENT,
    ParentKey INTEGER,
    ChildIndex INTEGER,
    LongName TEXT,
    ShortName TEXT,
    UnitType TEXT,
    UnitName TEXT,
    UnitCost CURRENCY
);

-- The lines of an outcome's resource list.
CREATE TABLE SRUses (
    ItemKey INTEGER PRIMARY KEY,
    OutcomeKey INTEGER,
    ItemIndex INTEGER,
    SRTypeKey INTEGER,
    Quantity INTEGER,
    Periods INTEGER
);

-- Land units; a file without any works through land unit key 0.
CREATE TABLE FMZList (
    "Key" INTEGER PRIMARY KEY,
    FMZCode TEXT,
    Name TEXT
);

-- The 14 resources of the value table.
CREATE TABLE NVCResources (
    ResourceIndex INTEGER PRIMARY KEY,
    ResourceName TEXT
);

-- Change of value per acre of each resource at each intensity level.
CREATE TABLE NVCPerAcre (
    FMZKey INTEGER,
    ResourceIndex INTEGER,
    Fil1 REAL,
    Fil2 REAL,
    Fil3 REAL,
    Fil4 REAL,
    Fil5 REAL,
    Fil6 REAL,
    PRIMARY KEY (FMZKey, ResourceIndex)
) WITHOUT ROWID;

-- Cost per acre by size of the fire, nine size classes.
CREATE TABLE SuppressionPerAcreCost (
    FMZKey INTEGER,
    SizeClass INTEGER,
    TopSize REAL,
    Cost REAL,
    PRIMARY KEY (FMZKey, SizeClass)
) WITHOUT ROWID;

-- What the queries select and order by. A file without these indexes works all the same.
CREATE INDEX ItemsInGroup ON Items (ParentKey, ChildIndex);
CREATE INDEX OutcomesOfAlternative ON Outcomes (ParentKey, ChildIndex);
CREATE INDEX SRUsesOfOutcome ON SRUses (OutcomeKey, ItemIndex);
CREATE INDEX ScoresOfCriterion ON Scores (CriterionKey);
CREATE INDEX ItemImpactsOfItem ON ItemImpacts (ItemKey);
CREATE INDEX SRTypesInOrder ON SRTypes (ChildIndex);
