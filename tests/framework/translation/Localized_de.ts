<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>LocalizedTest</name>
    <message><source>Hello</source><translation>Hallo</translation></message>
    <message><source>Only German</source><translation>Nur Deutsch</translation></message>
</context>
</TS>
