<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>MRL_H_Dialog</name>
    <message>
        <source>Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Explains this window (F1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A part of the project could not be read, and saving would delete it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saving failed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 The project is as it was before, and your input is still here.

%2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not saved</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MRL_H_Generators</name>
    <message>
        <source>made anew with each run, changes made here are lost</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MRL_QT_AdvancedSlider</name>
    <message>
        <source>Number</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MRL_QT_Ok</name>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mrl::ui::HelpWindow</name>
    <message>
        <source>There is no help on &quot;%1&quot; in the book &quot;%2&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Find:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Word in this page</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Help: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
