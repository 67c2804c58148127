<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>GripperBar</name>
    <message>
        <source>Open or close</source>
        <translation>Öffnen oder schließen</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Anschluss</translation>
    </message>
</context>
<context>
    <name>GripperDialog</name>
    <message>
        <source>Fingers</source>
        <translation>Finger</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Betriebsart</translation>
    </message>
</context>
</TS>
