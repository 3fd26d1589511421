<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>Late</name>
    <message><source>Action</source><translation>Einwirkung</translation></message>
</context>
</TS>
