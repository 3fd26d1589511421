<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>Probe</name>
    <message><source>Load case</source><translation>Lastfall</translation></message>
</context>
</TS>
