<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fi">
<context>
    <name>ConnectedPage</name>
    <message>
        <location filename="../../contents/ConnectedPage.qml" line="19"/>
        <source>CONNECTED</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../contents/ConnectedPage.qml" line="27"/>
        <source>Pump software version %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ConnectingPage</name>
    <message>
        <location filename="../../contents/ConnectingPage.qml" line="62"/>
        <source>CONNECTING</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
