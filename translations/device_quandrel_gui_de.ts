<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>BaseDialog</name>
    <message>
        <source>Camera</source>
        <translation>Kamera</translation>
    </message>
    <message>
        <source>Resolution</source>
        <translation>Auflösung</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>Frequenz</translation>
    </message>
    <message>
        <source>Disable drive system</source>
        <translation>Antrieb abschalten</translation>
    </message>
</context>
<context>
    <name>ConnectButton</name>
    <message>
        <source>Connecting to %1.</source>
        <translation>Verbindung mit %1 wird aufgebaut.</translation>
    </message>
    <message>
        <source>Connected to %1.</source>
        <translation>Verbunden mit %1.</translation>
    </message>
    <message>
        <source>Not connected.</source>
        <translation>Nicht verbunden.</translation>
    </message>
</context>
<context>
    <name>Dialog</name>
    <message>
        <source>Base</source>
        <translation>Basis</translation>
    </message>
    <message>
        <source>Manipulator</source>
        <translation>Manipulator</translation>
    </message>
    <message>
        <source>Laser rangefinder</source>
        <translation>Laserscanner</translation>
    </message>
</context>
<context>
    <name>LaserRangeFinderDialog</name>
    <message>
        <source>Sequence number</source>
        <translation>Sequenznummer</translation>
    </message>
    <message>
        <source>Time stamp</source>
        <translation>Zeitstempel</translation>
    </message>
    <message>
        <source>Frame ID</source>
        <translation>Frame-ID</translation>
    </message>
    <message>
        <source>Minimum angle \[deg]</source>
        <translation>Kleinster Winkel \[Grad]</translation>
    </message>
    <message>
        <source>Maximum angle \[deg]</source>
        <translation>Größter Winkel \[Grad]</translation>
    </message>
    <message>
        <source>Angle increment \[deg]</source>
        <translation>Winkelschritt \[Grad]</translation>
    </message>
    <message>
        <source>Time increment \[s]</source>
        <translation>Zeitschritt \[s]</translation>
    </message>
    <message>
        <source>Scan time \[s]</source>
        <translation>Scandauer \[s]</translation>
    </message>
    <message>
        <source>Minimum range \[m]</source>
        <translation>Kleinste Reichweite \[m]</translation>
    </message>
    <message>
        <source>Maximum range \[m]</source>
        <translation>Größte Reichweite \[m]</translation>
    </message>
    <message>
        <source>Number of range measurements</source>
        <translation>Anzahl der Entfernungsmessungen</translation>
    </message>
    <message>
        <source>Number of intensity measurements</source>
        <translation>Anzahl der Intensitätsmessungen</translation>
    </message>
</context>
<context>
    <name>ManipulatorDialog</name>
    <message>
        <source>Line</source>
        <translation>Leitung</translation>
    </message>
    <message>
        <source>enabled</source>
        <translation>eingeschaltet</translation>
    </message>
    <message>
        <source>Toggle torque</source>
        <translation>Drehmoment umschalten</translation>
    </message>
</context>
<context>
    <name>PositionModel</name>
    <message>
        <source>Pos</source>
        <translation>Pos</translation>
    </message>
    <message>
        <source>name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Axis</source>
        <translation>Achse</translation>
    </message>
</context>
<context>
    <name>PositionView</name>
    <message>
        <source>Edit speed</source>
        <translation>Geschwindigkeit ändern</translation>
    </message>
    <message>
        <source>Add position</source>
        <translation>Position hinzufügen</translation>
    </message>
    <message>
        <source>Remove position</source>
        <translation>Position entfernen</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Axis</source>
        <translation>Achse</translation>
    </message>
    <message>
        <source>speed</source>
        <translation>Geschwindigkeit</translation>
    </message>
</context>
</TS>
