<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>ActionManagerPlugin</name>
    <message>
        <source>Marlavon Action Manager</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Actions</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LCM_ActionsWidget</name>
    <message>
        <source>%1 has to be bigger than 0.0!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 has to be between %2 and %3!</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LCM_DataClass</name>
    <message>
        <source>Database corrupt</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Can&apos;t read design code from database! Some text may be wrong or unreadable.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LCM_LoadcaseWidget</name>
    <message>
        <source>%1 has to be greater than 0.0!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 has to be between %2 and %3!</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LoadcaseManager</name>
    <message>
        <source>Marlavon: Loadcase Manager</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Loadcases</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Actions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Marlavon: Action Manager</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Marlavon: Action and Loadcase Manager</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid input</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The input is invalid, please check your input!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Error!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please select exactly one loadcase!</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MRL_LC_AddNewActionDialog</name>
    <message>
        <source>Max. 1 character for category!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Max. 4 characters!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Spaces are not allowed!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Special characters are not allowed!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No digit at beginning!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Action &apos;IMP&apos; is not allowed!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Action beginning with &apos;Y&apos; is not allowed!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Name already used!</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
