<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>host::device::Device</name>
    <message>
        <source>The stored setting &quot;%1&quot; in %2 has the wrong type. The default is used: set it again, or correct the file.</source>
        <translation>Die gespeicherte Einstellung „%1“ in %2 hat den falschen Typ. Es gilt die Vorgabe: Stellen Sie sie neu ein, oder berichtigen Sie die Datei.</translation>
    </message>
    <message>
        <source>Scans are shown as they arrive while the device is connected.</source>
        <translation>Solange das Gerät verbunden ist, werden die Scans angezeigt, wie sie eintreffen.</translation>
    </message>
    <message>
        <source>The arm&apos;s position was not stored: the positions of some axes are unknown. Connect to a robot with an arm and try again.</source>
        <translation>Die Armposition wurde nicht gespeichert: Die Positionen einiger Achsen sind unbekannt. Verbinden Sie sich mit einem Roboter mit Arm und versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; was not changed: the device refuses writes.</source>
        <translation>„%1“ wurde nicht geändert: Das Gerät verweigert das Schreiben.</translation>
    </message>
    <message>
        <source>device</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <source>The plugin&apos;s function %1 threw an exception: %2. The rest works on. Ask the plugin&apos;s author for a fixed version.</source>
        <translation>Die Funktion %1 des Plugins warf eine Ausnahme: %2. Der Rest arbeitet weiter. Bitten Sie den Autor des Plugins um eine korrigierte Version.</translation>
    </message>
</context>
<context>
    <name>host::device::Settings</name>
    <message>
        <source>Line %1 of the robot is on.</source>
        <translation>Leitung %1 des Roboters ist eingeschaltet.</translation>
    </message>
    <message>
        <source>Line %1 of the robot is off.</source>
        <translation>Leitung %1 des Roboters ist ausgeschaltet.</translation>
    </message>
</context>
<context>
    <name>host::device::connection::ArmJoints</name>
    <message>
        <source>the entry &quot;%1&quot; is no joint: it needs &quot;joint&quot;, a text, &quot;unit&quot;, which is rad, deg or m, &quot;reversed&quot;, true or false, and &quot;offset&quot;, a number</source>
        <translation>der Eintrag „%1“ ist kein Gelenk: Er braucht „joint“, einen Text, „unit“, das rad, deg oder m ist, „reversed“, true oder false, und „offset“, eine Zahl</translation>
    </message>
</context>
<context>
    <name>host::device::connection::Certificates</name>
    <message>
        <source>the fingerprint of &quot;%1&quot; is not text</source>
        <translation>Der Fingerabdruck von „%1“ ist kein Text</translation>
    </message>
    <message>
        <source>Its certificate cannot be verified: %1. The SHA-256 fingerprint is %2. If the robot&apos;s certificate has the same one, trust it, or start with --trust FILE, a PEM file with it.</source>
        <translation>Sein Zertifikat lässt sich nicht prüfen: %1. Der SHA-256-Fingerabdruck ist %2. Hat das Zertifikat des Roboters denselben, dann vertrauen Sie ihm, oder starten Sie mit --trust DATEI, einer PEM-Datei mit dem Zertifikat.</translation>
    </message>
    <message>
        <source>Its certificate has changed since it was trusted, and cannot be verified: %1. Another computer may pose as the robot: ask who changed it. The SHA-256 fingerprint was %2 and is now %3. If the robot&apos;s certificate has the new one, trust it, or start with --trust FILE, a PEM file with it.</source>
        <translation>Sein Zertifikat ist ein anderes als das, dem vertraut wurde, und lässt sich nicht prüfen: %1. Womöglich gibt sich ein anderer Computer als der Roboter aus: Fragen Sie, wer es geändert hat. Der SHA-256-Fingerabdruck war %2 und ist jetzt %3. Hat das Zertifikat des Roboters den neuen, dann vertrauen Sie ihm, oder starten Sie mit --trust DATEI, einer PEM-Datei mit dem Zertifikat.</translation>
    </message>
</context>
<context>
    <name>host::device::connection::Commands</name>
    <message>
        <source>Disable the drive system</source>
        <translation>Antrieb abschalten</translation>
    </message>
    <message>
        <source>Enable the drive system</source>
        <translation>Antrieb einschalten</translation>
    </message>
    <message>
        <source>Camera resolution %1</source>
        <translation>Kameraauflösung %1</translation>
    </message>
    <message>
        <source>Enable line %1</source>
        <translation>Leitung %1 einschalten</translation>
    </message>
    <message>
        <source>Disable line %1</source>
        <translation>Leitung %1 ausschalten</translation>
    </message>
    <message>
        <source>Switch torque off</source>
        <translation>Drehmoment ausschalten</translation>
    </message>
    <message>
        <source>Switch torque on</source>
        <translation>Drehmoment einschalten</translation>
    </message>
    <message>
        <source>%1: not done. %2</source>
        <translation>%1: nicht ausgeführt. %2</translation>
    </message>
    <message>
        <source>The device is not connected.</source>
        <translation>Das Gerät ist nicht verbunden.</translation>
    </message>
    <message>
        <source>The device is not in control of the robot. To take control, choose Robot &gt; Control.</source>
        <translation>Das Gerät hat die Steuerung des Roboters nicht. Übernehmen Sie sie unter Roboter &gt; Steuerung.</translation>
    </message>
</context>
<context>
    <name>host::device::connection::Connection</name>
    <message>
        <source>Not connected.</source>
        <translation>Nicht verbunden.</translation>
    </message>
    <message>
        <source>%1 has not answered the request for control for %2 s. Restart the robot&apos;s program and connect again.</source>
        <translation>%1 hat die Bitte um die Steuerung seit %2 s nicht beantwortet. Starten Sie das Programm des Roboters neu und verbinden Sie erneut.</translation>
    </message>
    <message>
        <source>Robot, %1: %2</source>
        <translation>Roboter, %1: %2</translation>
    </message>
    <message>
        <source>Connecting to %1 …</source>
        <translation>Verbindung mit %1 wird aufgebaut …</translation>
    </message>
    <message>
        <source>Connected to %1.</source>
        <translation>Verbunden mit %1.</translation>
    </message>
    <message>
        <source>name unknown</source>
        <translation>Name unbekannt</translation>
    </message>
    <message>
        <source>%1 If its rosbridge wants authentication (the operation &quot;auth&quot;), switch that off: this program cannot log in.</source>
        <translation>%1 Verlangt sein rosbridge eine Anmeldung (die Operation „auth“), dann schalten Sie das ab: Dieses Programm kann sich nicht anmelden.</translation>
    </message>
    <message>
        <source>Connected to %1, passive: control was released. To take it again, choose Robot &gt; Control.</source>
        <translation>Verbunden mit %1, passiv: Die Steuerung wurde abgegeben. Übernehmen Sie sie wieder unter Roboter &gt; Steuerung.</translation>
    </message>
    <message>
        <source>Connected to %1, passive: another client is in control (%2). To take over, choose Robot &gt; Control.</source>
        <translation>Verbunden mit %1, passiv: Ein anderer Client hat die Steuerung (%2). Übernehmen Sie sie unter Roboter &gt; Steuerung.</translation>
    </message>
    <message>
        <source>Control was not released. Reason: %1</source>
        <translation>Die Steuerung wurde nicht abgegeben. Grund: %1</translation>
    </message>
</context>
<context>
    <name>host::device::connection::Listener</name>
    <message>
        <source>A message on the topic %1 was ignored: %2.</source>
        <translation>Eine Nachricht des Topics %1 wurde ignoriert: %2.</translation>
    </message>
</context>
<context>
    <name>host::device::connection::Offer</name>
    <message>
        <source>This robot does not offer %1. The functions in brackets are unavailable; if the robot has other names for them, enter them in Robot &gt; Names….</source>
        <translation>Dieser Roboter bietet nicht an: %1. Die Funktionen in Klammern sind nicht verfügbar; hat der Roboter andere Namen dafür, tragen Sie sie unter „Roboter &gt; Namen…“ ein.</translation>
    </message>
    <message>
        <source>%1 as %2, but as %3 (%4)</source>
        <translation>%1 als %2, sondern als %3 (%4)</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
</context>
<context>
    <name>host::device::connection::Remappings</name>
    <message>
        <source>the laser&apos;s scans</source>
        <translation>die Scans des Lasers</translation>
    </message>
    <message>
        <source>the camera&apos;s rate</source>
        <translation>die Bildrate der Kamera</translation>
    </message>
    <message>
        <source>the arm&apos;s position, and storing it</source>
        <translation>die Position des Arms und ihr Speichern</translation>
    </message>
    <message>
        <source>the arm&apos;s targets</source>
        <translation>die Ziele des Arms</translation>
    </message>
    <message>
        <source>the state of the arm&apos;s torque</source>
        <translation>der Zustand des Drehmoments</translation>
    </message>
    <message>
        <source>the state of supply line 1</source>
        <translation>der Zustand von Versorgungsleitung 1</translation>
    </message>
    <message>
        <source>the state of supply line 2</source>
        <translation>der Zustand von Versorgungsleitung 2</translation>
    </message>
    <message>
        <source>the state of supply line 3</source>
        <translation>der Zustand von Versorgungsleitung 3</translation>
    </message>
    <message>
        <source>the state of the drive</source>
        <translation>der Zustand des Antriebs</translation>
    </message>
    <message>
        <source>the robot&apos;s position</source>
        <translation>die Position des Roboters</translation>
    </message>
    <message>
        <source>the map</source>
        <translation>die Karte</translation>
    </message>
    <message>
        <source>the positions of the robot and its laser on the map</source>
        <translation>die Positionen des Roboters und seines Lasers auf der Karte</translation>
    </message>
    <message>
        <source>fixed frames, if any</source>
        <translation>feste Koordinatensysteme, falls vorhanden</translation>
    </message>
    <message>
        <source>the robot&apos;s own log messages</source>
        <translation>die eigenen Protokollzeilen des Roboters</translation>
    </message>
    <message>
        <source>exclusive control</source>
        <translation>die alleinige Steuerung</translation>
    </message>
    <message>
        <source>releasing control</source>
        <translation>das Abgeben der Steuerung</translation>
    </message>
    <message>
        <source>disabling the drive</source>
        <translation>das Abschalten des Antriebs</translation>
    </message>
    <message>
        <source>setting the camera&apos;s resolution</source>
        <translation>das Einstellen der Kameraauflösung</translation>
    </message>
    <message>
        <source>switching the arm&apos;s torque</source>
        <translation>das Schalten des Drehmoments</translation>
    </message>
    <message>
        <source>switching supply line 1</source>
        <translation>das Schalten von Versorgungsleitung 1</translation>
    </message>
    <message>
        <source>switching supply line 2</source>
        <translation>das Schalten von Versorgungsleitung 2</translation>
    </message>
    <message>
        <source>switching supply line 3</source>
        <translation>das Schalten von Versorgungsleitung 3</translation>
    </message>
    <message>
        <source>the list of topics</source>
        <translation>die Liste der Topics</translation>
    </message>
    <message>
        <source>the list of services</source>
        <translation>die Liste der Services</translation>
    </message>
    <message>
        <source>the list of topics that are published</source>
        <translation>die Liste der veröffentlichten Topics</translation>
    </message>
    <message>
        <source>detecting a simulated robot</source>
        <translation>das Erkennen eines simulierten Roboters</translation>
    </message>
    <message>
        <source>This program does not use the name &quot;%1&quot;: choose one of %2.</source>
        <translation>Dieses Programm verwendet den Namen „%1“ nicht: Wählen Sie einen von %2.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a valid name of a topic or service: write it as in /front/scan. Each part consists of letters from A to Z, digits and &quot;_&quot;, and does not begin with a digit.</source>
        <translation>„%1“ ist kein gültiger Name eines Topics oder Services: Schreiben Sie ihn wie in /front/scan. Jeder Teil besteht aus Buchstaben von A bis Z, Ziffern und „_“ und beginnt nicht mit einer Ziffer.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a mapping: write our name, &quot;:=&quot; and the robot&apos;s, as in /scan:=/base_scan.</source>
        <translation>„%1“ ist keine Zuordnung: Schreiben Sie unseren Namen, „:=“ und den des Roboters, wie in /scan:=/base_scan.</translation>
    </message>
    <message>
        <source>the name for &quot;%1&quot; is not text</source>
        <translation>der Name für „%1“ ist kein Text</translation>
    </message>
    <message>
        <source>whether the robot is stopped</source>
        <translation>ob der Roboter angehalten ist</translation>
    </message>
    <message>
        <source>driving</source>
        <translation>das Fahren</translation>
    </message>
    <message>
        <source>moving the arm</source>
        <translation>das Bewegen des Arms</translation>
    </message>
    <message>
        <source>stopping all motion</source>
        <translation>das Anhalten aller Bewegungen</translation>
    </message>
    <message>
        <source>letting the robot move again after a stop</source>
        <translation>das Freigeben nach einem Halt</translation>
    </message>
    <message>
        <source>the camera&apos;s pictures</source>
        <translation>die Bilder der Kamera</translation>
    </message>
    <message>
        <source>the robot&apos;s outline</source>
        <translation>der Umriss des Roboters</translation>
    </message>
</context>
<context>
    <name>host::device::connection::SilentTopics</name>
    <message>
        <source>Nothing came on %1 for %2 s, while other topics did. It is now requested as JSON instead of CBOR.</source>
        <translation>Auf %1 kam %2 s lang nichts, während auf anderen Topics etwas kam. Es wird jetzt als JSON statt als CBOR angefordert.</translation>
    </message>
    <message>
        <source>Nothing came on %1 for %2 s, while other topics did. It is requested as CBOR instead of JSON for another %2 s.</source>
        <translation>Auf %1 kam %2 s lang nichts, während auf anderen Topics etwas kam. Es wird für weitere %2 s als CBOR statt als JSON angefordert.</translation>
    </message>
</context>
<context>
    <name>host::device::faults::Faults</name>
    <message>
        <source>next connection refused</source>
        <translation>nächste Verbindung wird abgewiesen</translation>
    </message>
    <message>
        <source>another client in control</source>
        <translation>ein anderer Client hat die Steuerung</translation>
    </message>
    <message>
        <source>answers %1 s late</source>
        <translation>Antworten %1 s verspätet</translation>
    </message>
    <message>
        <source>one message in %1 dropped</source>
        <translation>eine von %1 Nachrichten geht verloren</translation>
    </message>
    <message>
        <source>scan frozen</source>
        <translation>Scan eingefroren</translation>
    </message>
    <message>
        <source>writes refused</source>
        <translation>Schreiben wird verweigert</translation>
    </message>
    <message>
        <source>wrong type: %1</source>
        <translation>falscher Typ: %1</translation>
    </message>
    <message>
        <source>Active faults: %1</source>
        <translation>Aktive Störungen: %1</translation>
    </message>
    <message>
        <source>injected fault</source>
        <translation>herbeigeführte Störung</translation>
    </message>
</context>
<context>
    <name>host::device::operation::Control</name>
    <message>
        <source>This robot has no control: all who connect command it.</source>
        <translation>Dieser Roboter kennt keine Steuerung: Alle, die verbunden sind, können ihm befehlen.</translation>
    </message>
    <message>
        <source>This device is in control of the robot.</source>
        <translation>Dieses Gerät hat die Steuerung des Roboters.</translation>
    </message>
    <message>
        <source>This device is not in control of the robot.</source>
        <translation>Dieses Gerät hat die Steuerung des Roboters nicht.</translation>
    </message>
    <message>
        <source>This device is not in control of the robot: %1.</source>
        <translation>Dieses Gerät hat die Steuerung des Roboters nicht: %1.</translation>
    </message>
    <message>
        <source>Not connected.</source>
        <translation>Nicht verbunden.</translation>
    </message>
</context>
<context>
    <name>host::device::operation::Driving</name>
    <message>
        <source>the entry &quot;%1&quot; is not a number</source>
        <translation>der Eintrag „%1“ ist keine Zahl</translation>
    </message>
    <message>
        <source>Stop was pressed.</source>
        <translation>„Halt“ wurde gedrückt.</translation>
    </message>
    <message>
        <source>%1 Let go and press again.</source>
        <translation>%1 Lassen Sie los und drücken Sie erneut.</translation>
    </message>
    <message>
        <source>This robot does not listen to %1. If it has another name for it, enter it in Robot &gt; Names….</source>
        <translation>Dieser Roboter hört nicht auf %1. Hat er einen anderen Namen dafür, tragen Sie ihn unter Roboter &gt; Namen… ein.</translation>
    </message>
    <message>
        <source>This robot wants %1 on %2, which this program cannot send.</source>
        <translation>Dieser Roboter erwartet %1 auf %2; das kann dieses Programm nicht senden.</translation>
    </message>
    <message>
        <source>The robot is stopped. Release the stop first.</source>
        <translation>Der Roboter ist angehalten. Geben Sie ihn zuerst frei.</translation>
    </message>
    <message>
        <source>The robot is being stopped.</source>
        <translation>Der Roboter wird gerade angehalten.</translation>
    </message>
    <message>
        <source>The drive system is disabled. Enable it in the base tab.</source>
        <translation>Der Antrieb ist abgeschaltet. Schalten Sie ihn im Reiter „Basis“ ein.</translation>
    </message>
    <message>
        <source>Nothing has come from the robot for a second.</source>
        <translation>Vom Roboter kam seit einer Sekunde nichts.</translation>
    </message>
    <message>
        <source>The device is not in control of the robot. Take control first.</source>
        <translation>Das Gerät hat die Steuerung des Roboters nicht. Übernehmen Sie sie zuerst.</translation>
    </message>
    <message>
        <source>Not connected.</source>
        <translation>Nicht verbunden.</translation>
    </message>
</context>
<context>
    <name>host::device::operation::Stopping</name>
    <message>
        <source>The robot has not confirmed the stop: use its own emergency stop if it moves. Reason: %1</source>
        <translation>Der Roboter hat den Halt nicht bestätigt: Benutzen Sie seinen Not-Halt, falls er sich bewegt. Grund: %1</translation>
    </message>
    <message>
        <source>zero velocity on %1</source>
        <translation>die Geschwindigkeit null auf %1</translation>
    </message>
    <message>
        <source>an empty trajectory on %1, at which most arms hold</source>
        <translation>eine leere Trajektorie auf %1, bei der die meisten Arme anhalten</translation>
    </message>
    <message>
        <source> and </source>
        <translation> und </translation>
    </message>
    <message>
        <source>Not connected: no robot to stop.</source>
        <translation>Nicht verbunden: Es gibt keinen Roboter anzuhalten.</translation>
    </message>
    <message>
        <source>Calls %1: all motion ends, and the robot stays stopped until somebody in control releases it.</source>
        <translation>Ruft %1 auf: Jede Bewegung endet, und der Roboter bleibt angehalten, bis jemand mit der Steuerung ihn freigibt.</translation>
    </message>
    <message>
        <source>It is not known whether this robot has %1. Calls it, and sends %2.</source>
        <translation>Ob dieser Roboter %1 hat, ist nicht bekannt. Ruft es auf und sendet %2.</translation>
    </message>
    <message>
        <source>This robot offers nothing that stops it. Use its own emergency stop.</source>
        <translation>Dieser Roboter bietet nichts, was ihn anhält. Benutzen Sie seinen Not-Halt.</translation>
    </message>
    <message>
        <source>This robot has no %1. Sends %2. The robot does not stay stopped: other programs can move it again at once.</source>
        <translation>Dieser Roboter hat kein %1. Sendet %2. Der Roboter bleibt nicht angehalten: Andere Programme können ihn sofort wieder bewegen.</translation>
    </message>
    <message>
        <source>Stop was not sent: the device is not connected. Use the robot&apos;s own emergency stop.</source>
        <translation>Kein Halt gesendet: Das Gerät ist nicht verbunden. Benutzen Sie den Not-Halt des Roboters.</translation>
    </message>
    <message>
        <source>Stop was not sent: this robot offers nothing that stops it. Use its own emergency stop.</source>
        <translation>Kein Halt gesendet: Dieser Roboter bietet nichts, was ihn anhält. Benutzen Sie seinen Not-Halt.</translation>
    </message>
    <message>
        <source>Stop sends %1.</source>
        <translation>„Halt“ sendet %1.</translation>
    </message>
    <message>
        <source>The robot stays stopped: %1</source>
        <translation>Der Roboter bleibt angehalten: %1</translation>
    </message>
    <message>
        <source>the robot does not say.</source>
        <translation>Der Roboter nennt keinen.</translation>
    </message>
    <message>
        <source>The link ended before the robot confirmed the stop. Use its own emergency stop if it moves.</source>
        <translation>Die Verbindung endete, bevor der Roboter den Halt bestätigte. Benutzen Sie seinen Not-Halt, falls er sich bewegt.</translation>
    </message>
</context>
<context>
    <name>host::device::readers::JointPositions</name>
    <message>
        <source>has %1 numbers for %2 names</source>
        <translation>hat %1 Zahlen für %2 Namen</translation>
    </message>
</context>
<context>
    <name>host::device::readers::JointTable</name>
    <message>
        <source>the joint &quot;%1&quot; has %2, which is not a position</source>
        <translation>das Gelenk „%1“ hat %2, was keine Position ist</translation>
    </message>
</context>
<context>
    <name>host::device::recording::BagThread</name>
    <message>
        <source>the disk is too slow: %1 wait to be written</source>
        <translation>Der Datenträger ist zu langsam: %1 warten darauf, geschrieben zu werden</translation>
    </message>
    <message>
        <source>%1 is not recorded any more: its type was %2 and is %3 now.</source>
        <translation>%1 wird nicht mehr aufgezeichnet: Sein Typ war %2 und ist jetzt %3.</translation>
    </message>
    <message>
        <source>A message of %1 is not recorded: %2.</source>
        <translation>Eine Nachricht von %1 wird nicht aufgezeichnet: %2.</translation>
    </message>
    <message>
        <source>this program has no definition of its type, %1</source>
        <translation>dieses Programm kennt die Definition seines Typs %1 nicht</translation>
    </message>
    <message>
        <source>%1 is not recorded: %2.</source>
        <translation>%1 wird nicht aufgezeichnet: %2.</translation>
    </message>
</context>
<context>
    <name>host::device::recording::CallText</name>
    <message>
        <source>a call has no number</source>
        <translation>ein Aufruf hat keine Nummer</translation>
    </message>
    <message>
        <source>the call %1 has no function or no arguments</source>
        <translation>der Aufruf %1 hat keine Funktion oder keine Argumente</translation>
    </message>
</context>
<context>
    <name>host::device::recording::DeviceState</name>
    <message>
        <source>its calls are of the format %1, and this program reads %2</source>
        <translation>ihre Aufrufe haben das Format %1, und dieses Programm liest %2</translation>
    </message>
    <message>
        <source>a variable has no kind</source>
        <translation>eine Variable hat keine Art</translation>
    </message>
</context>
<context>
    <name>host::device::recording::Recorder</name>
    <message>
        <source>The recording has ended: %1. All that was recorded until then is in %2.</source>
        <translation>Die Aufzeichnung ist zu Ende: %1. Alles, was bis dahin aufgezeichnet wurde, ist in %2.</translation>
    </message>
</context>
<context>
    <name>host::device::recording::ValueJson</name>
    <message>
        <source>a value is not of the type &quot;%1&quot; that it names</source>
        <translation>ein Wert ist nicht von dem Typ „%1“, den er nennt</translation>
    </message>
    <message>
        <source>a value has no type that this program knows: &quot;%1&quot;</source>
        <translation>ein Wert hat keinen Typ, den dieses Programm kennt: „%1“</translation>
    </message>
</context>
<context>
    <name>host::device::replay::Conversation</name>
    <message>
        <source>the call %1 names arguments that are not those before it</source>
        <translation>der Aufruf %1 nennt Argumente, die nicht die vor ihm sind</translation>
    </message>
    <message>
        <source>the call %1 ends and had not begun</source>
        <translation>der Aufruf %1 endet und hatte nicht begonnen</translation>
    </message>
    <message>
        <source>there are no calls between host and plugin in it (topic %1); choose a recording of device-workbench</source>
        <translation>sie enthält keine Aufrufe zwischen Host und Plugin (Topic %1); wählen Sie eine Aufzeichnung von device-workbench</translation>
    </message>
</context>
<context>
    <name>host::device::replay::Player</name>
    <message>
        <source>  the plugin did not call
    %1</source>
        <translation>  das Plugin rief nicht auf
    %1</translation>
    </message>
    <message>
        <source>%1 s, call %2: %3</source>
        <translation>%1 s, Aufruf %2: %3</translation>
    </message>
    <message>
        <source>  there is no widget %1 that it could be played to</source>
        <translation>  es gibt kein Widget %1, dem er gelten könnte</translation>
    </message>
    <message>
        <source>  this host has no such function</source>
        <translation>  dieser Host hat keine solche Funktion</translation>
    </message>
    <message>
        <source>  the plugin called
    %1
  and did not when it was recorded</source>
        <translation>  das Plugin rief auf
    %1
  und tat das bei der Aufzeichnung nicht</translation>
    </message>
    <message>
        <source>  the plugin called
    %1
  and recorded is
    %2</source>
        <translation>  das Plugin rief auf
    %1
  und aufgezeichnet ist
    %2</translation>
    </message>
    <message>
        <source>  the plugin threw an exception, and did not when it was recorded</source>
        <translation>  das Plugin warf eine Ausnahme und tat das bei der Aufzeichnung nicht</translation>
    </message>
    <message>
        <source>  the plugin threw an exception when it was recorded, and now did not</source>
        <translation>  das Plugin warf bei der Aufzeichnung eine Ausnahme und tat das jetzt nicht</translation>
    </message>
    <message>
        <source>  the plugin made &quot;%1&quot;, and recorded is &quot;%2&quot;</source>
        <translation>  das Plugin baute „%1“, und aufgezeichnet ist „%2“</translation>
    </message>
    <message>
        <source>Call %1, %2 s after the beginning: %3</source>
        <translation>Aufruf %1, %2 s nach dem Anfang: %3</translation>
    </message>
    <message>
        <source>Before that, in the same call:</source>
        <translation>Davor im selben Aufruf:</translation>
    </message>
    <message>
        <source>Recorded from there on:</source>
        <translation>Von da an ist aufgezeichnet:</translation>
    </message>
    <message>
        <source>Calls before it:</source>
        <translation>Aufrufe davor:</translation>
    </message>
</context>
<context>
    <name>host::device::replay::Replay</name>
    <message>
        <source>The recording cannot be read on here: %1. Another place may still be read: move the slider beyond it.</source>
        <translation>Die Aufzeichnung lässt sich hier nicht weiterlesen: %1. Eine andere Stelle ist vielleicht noch lesbar: Ziehen Sie den Schieber darüber hinaus.</translation>
    </message>
    <message>
        <source>This is a replay: there is no robot to connect to, and nothing is sent or stored. What you change stays until the recording tells another value.</source>
        <translation>Dies ist eine Wiedergabe: Es gibt keinen Roboter, und nichts wird gesendet oder gespeichert. Was Sie ändern, gilt, bis die Aufzeichnung einen anderen Wert meldet.</translation>
    </message>
</context>
<context>
    <name>host::device::trace::Traffic</name>
    <message>
        <source>%L1 bytes, which are too many to keep</source>
        <translation>%L1 Bytes, die zu viele zum Aufheben sind</translation>
    </message>
</context>
<context>
    <name>host::device::variables::ConfigStorage</name>
    <message>
        <source>&quot;%1&quot; is not an object with a type and a value</source>
        <translation>„%1“ ist kein Objekt mit Typ und Wert</translation>
    </message>
    <message>
        <source>the value of &quot;%1&quot; does not match its type</source>
        <translation>der Wert von „%1“ passt nicht zu seinem Typ</translation>
    </message>
</context>
<context>
    <name>host::device::variables::PositionStore</name>
    <message>
        <source>The arm&apos;s position was not stored: all %1 positions are in use. Remove one and try again.</source>
        <translation>Die Armposition wurde nicht gespeichert: Alle %1 Positionen sind belegt. Entfernen Sie eine und versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>Store the arm&apos;s position</source>
        <translation>Armposition speichern</translation>
    </message>
    <message>
        <source>The arm&apos;s position was stored as %1.</source>
        <translation>Die Armposition wurde als %1 gespeichert.</translation>
    </message>
</context>
<context>
    <name>host::device::variables::SettingsFile</name>
    <message>
        <source>at byte %1: %2</source>
        <translation>bei Byte %1: %2</translation>
    </message>
    <message>
        <source>it is not a JSON object</source>
        <translation>sie ist kein JSON-Objekt</translation>
    </message>
    <message>
        <source>The stored settings in %1 are damaged (%2). They were moved to %3 and the defaults are used: set them again, or correct that file and move it back.</source>
        <translation>Die gespeicherten Einstellungen in %1 sind beschädigt (%2). Sie wurden nach %3 verschoben, und es gelten die Vorgaben: Stellen Sie alles neu ein, oder berichtigen Sie diese Datei und verschieben Sie sie zurück.</translation>
    </message>
    <message>
        <source>The stored settings in %1 are damaged (%2) and cannot be moved aside (%3). The defaults are used, and changes are not stored: correct or remove the file and start again.</source>
        <translation>Die gespeicherten Einstellungen in %1 sind beschädigt (%2) und können nicht beiseitegelegt werden (%3). Es gelten die Vorgaben, und Änderungen werden nicht gespeichert: Berichtigen oder entfernen Sie die Datei und starten Sie neu.</translation>
    </message>
    <message>
        <source>the folder cannot be created</source>
        <translation>der Ordner kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>The stored settings in %1 cannot be used: %2. The defaults are used, and changes are not stored. Fix this or move the file away, and start again.</source>
        <translation>Die gespeicherten Einstellungen in %1 sind nicht zu verwenden: %2. Es gelten die Standardwerte, und Änderungen werden nicht gespeichert. Beheben Sie das oder verschieben Sie die Datei, und starten Sie neu.</translation>
    </message>
    <message>
        <source>another program is writing it</source>
        <translation>ein anderes Programm schreibt sie gerade</translation>
    </message>
    <message>
        <source>The settings cannot be stored in %1: %2. Changes are lost when the program ends: fix this or move the file away, and change a setting again.</source>
        <translation>Die Einstellungen können nicht in %1 gespeichert werden: %2. Änderungen gehen verloren, wenn das Programm endet: Beheben Sie das oder verschieben Sie die Datei, und ändern Sie dann eine Einstellung noch einmal.</translation>
    </message>
    <message>
        <source>The stored settings in %1 have been damaged (%2). They were moved to %3, and the settings of this program were stored in their place.</source>
        <translation>Die gespeicherten Einstellungen in %1 sind inzwischen beschädigt worden (%2). Sie wurden nach %3 verschoben, und an ihrer Stelle wurden die Einstellungen dieses Programms gespeichert.</translation>
    </message>
    <message>
        <source>it is not a regular file</source>
        <translation>es ist keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>it is larger than %1 MB</source>
        <translation>sie ist größer als %1 MB</translation>
    </message>
    <message>
        <source>a newer version of this program wrote it</source>
        <translation>eine neuere Version dieses Programms hat sie geschrieben</translation>
    </message>
    <message>
        <source>they are larger than %1 MB</source>
        <translation>sie sind größer als %1 MB</translation>
    </message>
    <message>
        <source>The settings cannot be stored in %1 (%2). Changes are lost when the program ends: free disk space or make the folder writable, and change a setting again.</source>
        <translation>Die Einstellungen können nicht in %1 gespeichert werden (%2). Änderungen gehen verloren, wenn das Programm endet: Schaffen Sie Platz auf dem Datenträger oder machen Sie den Ordner beschreibbar, und ändern Sie dann eine Einstellung noch einmal.</translation>
    </message>
</context>
<context>
    <name>host::loading::PluginLoader</name>
    <message>
        <source>Check the path given with --plugin. Without that option the workbench loads its own plugin.</source>
        <translation>Prüfen Sie den Pfad hinter --plugin. Ohne diese Option lädt die Werkbank das mitgelieferte Plugin.</translation>
    </message>
    <message>
        <source>The plugin was not found</source>
        <translation>Das Plugin wurde nicht gefunden</translation>
    </message>
    <message>
        <source>There is no such file.</source>
        <translation>Diese Datei gibt es nicht.</translation>
    </message>
    <message>
        <source>The plugin cannot be read</source>
        <translation>Das Plugin kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>You have no permission to read the file.</source>
        <translation>Sie haben kein Recht, die Datei zu lesen.</translation>
    </message>
    <message>
        <source>The path names a folder, not a file.</source>
        <translation>Der Pfad nennt einen Ordner, keine Datei.</translation>
    </message>
    <message>
        <source>This is not a plugin</source>
        <translation>Das ist kein Plugin</translation>
    </message>
    <message>
        <source>The file is not a shared library.</source>
        <translation>Die Datei ist keine gemeinsam genutzte Bibliothek.</translation>
    </message>
    <message>
        <source>The plugin could not be loaded</source>
        <translation>Das Plugin konnte nicht geladen werden</translation>
    </message>
    <message>
        <source>The system&apos;s loader reports: %1.</source>
        <translation>Der Lader des Systems meldet: %1.</translation>
    </message>
    <message>
        <source>Build the plugin again for this version of the host and of Qt, and install the libraries it needs; &quot;ldd -r&quot; on the file lists what is missing.</source>
        <translation>Bauen Sie das Plugin für diese Version des Hosts und von Qt neu, und installieren Sie die Bibliotheken, die es braucht; „ldd -r“ mit der Datei listet auf, was fehlt.</translation>
    </message>
    <message>
        <source>This is not a device plugin</source>
        <translation>Das ist kein Geräte-Plugin</translation>
    </message>
    <message>
        <source>The library does not export the function %1.</source>
        <translation>Die Bibliothek exportiert die Funktion %1 nicht.</translation>
    </message>
    <message>
        <source>The plugin failed to start</source>
        <translation>Das Plugin ist beim Start gescheitert</translation>
    </message>
    <message>
        <source>Ask the plugin&apos;s author for a fixed version, or choose another plugin with --plugin.</source>
        <translation>Bitten Sie den Autor des Plugins um eine korrigierte Version, oder wählen Sie mit --plugin ein anderes.</translation>
    </message>
    <message>
        <source>Its function %1 returned no interface object.</source>
        <translation>Seine Funktion %1 lieferte kein Schnittstellenobjekt.</translation>
    </message>
    <message>
        <source>Its function %1 threw an exception: %2.</source>
        <translation>Seine Funktion %1 warf eine Ausnahme: %2.</translation>
    </message>
    <message>
        <source>Its function %1 threw an exception of an unknown type.</source>
        <translation>Seine Funktion %1 warf eine Ausnahme unbekannten Typs.</translation>
    </message>
    <message>
        <source>The plugin is for another version</source>
        <translation>Das Plugin ist für eine andere Version</translation>
    </message>
    <message>
        <source>It was built for version %1 of the plugin framework; this workbench has version %2.</source>
        <translation>Es ist für Version %1 des Plugin-Frameworks gebaut; diese Werkbank hat Version %2.</translation>
    </message>
    <message>
        <source>Build the plugin again with the development files of version %1, or install the workbench of version %2.</source>
        <translation>Bauen Sie das Plugin mit den Entwicklungsdateien von Version %1 neu, oder installieren Sie die Werkbank von Version %2.</translation>
    </message>
</context>
<context>
    <name>host::workbench::Application</name>
    <message>
        <source>The program cannot be started again: %1</source>
        <translation>Das Programm kann nicht neu gestartet werden: %1</translation>
    </message>
    <message>
        <source>There is no display: set DISPLAY or WAYLAND_DISPLAY. Without one, --script and --tour run, which can write pictures of the window.</source>
        <translation>Es gibt keine Anzeige: Setzen Sie DISPLAY oder WAYLAND_DISPLAY. Ohne Anzeige laufen --script und --tour, die Bilder des Fensters schreiben können.</translation>
    </message>
    <message>
        <source>%1 bytes</source>
        <translation>%1 Bytes</translation>
    </message>
</context>
<context>
    <name>host::workbench::Options</name>
    <message>
        <source>Load the device plugin FILE instead of the program&apos;s own.</source>
        <translation>Lädt das Geräte-Plugin FILE anstelle des eigenen.</translation>
    </message>
    <message>
        <source>Shows a device plugin at work, with a simulated robot to connect to.</source>
        <translation>Zeigt ein Geräte-Plugin bei der Arbeit, mit einem simulierten Roboter zum Verbinden.</translation>
    </message>
    <message>
        <source>Show everything larger by FACTOR, %1 to %2 (default: %1).</source>
        <translation>Alles um FACTOR größer zeigen, %1 bis %2 (Vorgabe: %1).</translation>
    </message>
    <message>
        <source>Name of the device. Its settings are stored under this name (default: %1). Can be repeated, to show several devices side by side.</source>
        <translation>Name des Geräts. Unter diesem Namen werden seine Einstellungen gespeichert (Vorgabe: %1). Kann mehrfach angegeben werden, um mehrere Geräte nebeneinander zu zeigen.</translation>
    </message>
    <message>
        <source>Use the robot&apos;s topic or service THEIRS in place of OURS, as in /scan:=/base_scan. Stored for each device that is shown. Can be repeated.</source>
        <translation>Verwendet das Topic oder den Dienst THEIRS des Roboters anstelle von OURS, etwa /scan:=/base_scan. Wird für jedes gezeigte Gerät gespeichert. Kann mehrfach angegeben werden.</translation>
    </message>
    <message>
        <source>Do not start a simulated robot.</source>
        <translation>Startet keinen simulierten Roboter.</translation>
    </message>
    <message>
        <source>Language: %1 (default: the one chosen last, or the system&apos;s).</source>
        <translation>Sprache: %1 (Vorgabe: die zuletzt gewählte oder die des Systems).</translation>
    </message>
    <message>
        <source>Appearance: %1 (default: the one chosen last, or the system&apos;s).</source>
        <translation>Erscheinungsbild: %1 (Vorgabe: das zuletzt gewählte oder das des Systems).</translation>
    </message>
    <message>
        <source>--%1: the value is empty</source>
        <translation>--%1: Der Wert ist leer</translation>
    </message>
    <message>
        <source>--scale: &quot;%1&quot; is not a number from %2 to %3</source>
        <translation>--scale: „%1“ ist keine Zahl von %2 bis %3</translation>
    </message>
    <message>
        <source>unexpected argument &quot;%1&quot;</source>
        <translation>unerwartetes Argument „%1“</translation>
    </message>
    <message>
        <source>--device: there are two devices named &quot;%1&quot;; give each its own name</source>
        <translation>--device: Zwei Geräte heißen „%1“; geben Sie jedem einen eigenen Namen</translation>
    </message>
    <message>
        <source>--address: there are more addresses than devices; name a further device with --device for each</source>
        <translation>--address: Es gibt mehr Adressen als Geräte; nennen Sie für jede ein weiteres Gerät mit --device</translation>
    </message>
    <message>
        <source>--laser-log needs the simulated robot, which --no-robot leaves out; give only one of them</source>
        <translation>--laser-log braucht den simulierten Roboter, den --no-robot weglässt; geben Sie nur eines von beiden an</translation>
    </message>
    <message>
        <source>--language: &quot;%1&quot; is not one of %2</source>
        <translation>--language: „%1“ ist keine von %2</translation>
    </message>
    <message>
        <source>--appearance: &quot;%1&quot; is not one of %2</source>
        <translation>--appearance: „%1“ ist keines von %2</translation>
    </message>
    <message>
        <source>Address of the robot: host, host:port, [IPv6]:port, ws://host:port/path or wss://host:port/path (default: the simulated robot&apos;s). The second one is for the second device, and so on.</source>
        <translation>Adresse des Roboters: Host, Host:Port, [IPv6]:Port, ws://Host:Port/Pfad oder wss://Host:Port/Pfad (Vorgabe: die des simulierten Roboters). Die zweite gilt für das zweite Gerät und so weiter.</translation>
    </message>
    <message>
        <source>Trust the certificates in FILE (PEM) when connecting by wss://, and servers that they vouch for. Can be repeated.</source>
        <translation>Beim Verbinden über wss:// den Zertifikaten in FILE (PEM) vertrauen, und den Servern, für die sie bürgen. Kann wiederholt werden.</translation>
    </message>
    <message>
        <source>--trust: %1 cannot be read</source>
        <translation>--trust: %1 lässt sich nicht lesen</translation>
    </message>
    <message>
        <source>--trust: there is no certificate in PEM format in %1</source>
        <translation>--trust: %1 enthält kein Zertifikat im PEM-Format</translation>
    </message>
    <message>
        <source>Record the first device to the ROS bag FILE from the beginning.</source>
        <translation>Das erste Gerät von Anfang an im ROS-Bag FILE aufzeichnen.</translation>
    </message>
    <message>
        <source>Run the script FILE in the window, with settings of its own, and exit. Needs no display.</source>
        <translation>Das Skript FILE im Fenster ausführen, mit eigenen Einstellungen, und beenden. Braucht keine Anzeige.</translation>
    </message>
    <message>
        <source>Folder for what the script writes, made where it is missing (default: the current one).</source>
        <translation>Ordner für das, was das Skript schreibt; wird angelegt, wenn er fehlt (Standard: der aktuelle).</translation>
    </message>
    <message>
        <source>Write what became of the script to FILE, in the XML of JUnit.</source>
        <translation>Das Ergebnis des Skripts in FILE schreiben, im XML von JUnit.</translation>
    </message>
    <message>
        <source>Run the script of the automated tour, which writes pictures of the workbench to DIR.</source>
        <translation>Das Skript der automatischen Tour ausführen, das Bilder der Werkbank in DIR schreibt.</translation>
    </message>
    <message>
        <source>--tour runs a script of its own, in a folder of its own; leave out --script and --output</source>
        <translation>--tour führt ein eigenes Skript in einem eigenen Ordner aus; lassen Sie --script und --output weg</translation>
    </message>
    <message>
        <source>--output and --junit are about a script; give --script, too</source>
        <translation>--output und --junit beziehen sich auf ein Skript; geben Sie auch --script an</translation>
    </message>
    <message>
        <source>Write versions, plugin and settings to FILE, a compressed archive (.tar.gz), for a bug report, and exit. Addresses, certificates and histories are left out.</source>
        <translation>Versionen, Plugin und Einstellungen für einen Fehlerbericht in FILE schreiben, ein komprimiertes Archiv (.tar.gz), und beenden. Adressen, Zertifikate und Verläufe bleiben weg.</translation>
    </message>
    <message>
        <source>--bug-report: &quot;%1&quot; does not end in %2</source>
        <translation>--bug-report: „%1“ endet nicht auf %2</translation>
    </message>
    <message>
        <source>Play the recording FILE into the plugin, without a robot: in the window, or with --assert.</source>
        <translation>Die Aufzeichnung FILE ohne Roboter in das Plugin abspielen: im Fenster oder mit --assert.</translation>
    </message>
    <message>
        <source>With --replay: compare what the plugin does with what it did when it was recorded, without a window. The exit status is 0 if it is the same.</source>
        <translation>Mit --replay: ohne Fenster vergleichen, was das Plugin tut und was es bei der Aufzeichnung tat. Der Exit-Status ist 0, wenn es dasselbe ist.</translation>
    </message>
    <message>
        <source>--assert is about a recording; give --replay FILE, too</source>
        <translation>--assert gehört zu einer Aufzeichnung; geben Sie auch --replay FILE an</translation>
    </message>
    <message>
        <source>--replay has no device that could be recorded or work a script; leave out --record, --script and --tour</source>
        <translation>--replay hat kein Gerät, das aufgezeichnet oder von einem Skript bedient werden könnte; lassen Sie --record, --script und --tour weg</translation>
    </message>
</context>
<context>
    <name>host::workbench::ScanText</name>
    <message>
        <source>This is no scan (%1): write a sensor_msgs/LaserScan as JSON, for example the one that is shown for another scan.</source>
        <translation>Das ist kein Scan (%1): Schreiben Sie eine sensor_msgs/LaserScan als JSON, zum Beispiel so, wie ein anderer Scan gezeigt wird.</translation>
    </message>
</context>
<context>
    <name>host::workbench::ScriptRun</name>
    <message>
        <source>%1 cannot be read</source>
        <translation>%1 kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>%1 is not a folder, and none can be made there</source>
        <translation>%1 ist kein Ordner, und es kann dort keiner angelegt werden</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>--scale can be given on the command line only</source>
        <translation>--scale kann nur auf der Befehlszeile angegeben werden</translation>
    </message>
</context>
<context>
    <name>host::workbench::Session</name>
    <message>
        <source>The standard error lists further lines that cannot be read.</source>
        <translation>Die Standardfehlerausgabe nennt weitere Zeilen, die nicht lesbar sind.</translation>
    </message>
</context>
<context>
    <name>host::workbench::TableFile</name>
    <message>
        <source>%1 was not written: %2. Choose another folder, or free disk space.</source>
        <translation>%1 wurde nicht geschrieben: %2. Wählen Sie einen anderen Ordner, oder schaffen Sie Platz auf dem Datenträger.</translation>
    </message>
    <message>
        <source>Comma-separated values (*.csv)</source>
        <translation>Durch Kommas getrennte Werte (*.csv)</translation>
    </message>
</context>
<context>
    <name>host::workbench::ValueText</name>
    <message>
        <source>&quot;%1&quot; is not a valid number: write it as in -0.5, 1e-3, inf or nan.</source>
        <translation>„%1“ ist keine gültige Zahl: Schreiben Sie sie wie -0.5, 1e-3, inf oder nan.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a whole number from %2 to %3.</source>
        <translation>„%1“ ist keine ganze Zahl von %2 bis %3.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a truth value: write true or false.</source>
        <translation>„%1“ ist kein Wahrheitswert: Schreiben Sie true oder false.</translation>
    </message>
    <message>
        <source>A std::string is Latin-1 and cannot contain &quot;%1&quot;: leave it out, or choose QString.</source>
        <translation>Ein std::string ist Latin-1 und kann kein „%1“ enthalten: Lassen Sie es weg, oder wählen Sie QString.</translation>
    </message>
    <message>
        <source>Number %1: %2 Numbers are separated by commas.</source>
        <translation>Zahl Nr. %1: %2 Zahlen werden durch Kommas getrennt.</translation>
    </message>
    <message>
        <source>Write a list of texts as in [&quot;first&quot;, &quot;second&quot;].</source>
        <translation>Schreiben Sie eine Liste von Texten wie [&quot;erster&quot;, &quot;zweiter&quot;].</translation>
    </message>
    <message>
        <source>empty</source>
        <translation>leer</translation>
    </message>
    <message>
        <source>An empty value has no text: remove it, or choose another type.</source>
        <translation>Ein leerer Wert hat keinen Text: Entfernen Sie den Text, oder wählen Sie einen anderen Typ.</translation>
    </message>
    <message>
        <source>[%1, … %2 in all]</source>
        <translation>[%1, … insgesamt %2]</translation>
    </message>
    <message>
        <source>scan %1 of %2, ranges: %3</source>
        <translation>Scan %1 von %2, Entfernungen: %3</translation>
    </message>
</context>
<context>
    <name>host::workbench::armview::ArmControl</name>
    <message>
        <source>Not sent: %1.</source>
        <translation>Nicht gesendet: %1.</translation>
    </message>
    <message>
        <source>Not sent: the robot is not under control.</source>
        <translation>Nicht gesendet: Sie haben nicht die Steuerung des Roboters.</translation>
    </message>
</context>
<context>
    <name>host::workbench::armview::ArmDock</name>
    <message>
        <source> mm</source>
        <translation> mm</translation>
    </message>
    <message>
        <source>°</source>
        <translation>°</translation>
    </message>
    <message>
        <source>Arm</source>
        <translation>Arm</translation>
    </message>
    <message>
        <source>The arm from the side</source>
        <translation>Der Arm von der Seite</translation>
    </message>
    <message>
        <source>Solid: where the arm is. Outline: where its targets are. All axes turn in one plane here, and all links have the same length.</source>
        <translation>Ausgefüllt: wo der Arm ist. Umriss: wo seine Ziele liegen. Alle Achsen drehen sich hier in einer Ebene, und alle Glieder sind gleich lang.</translation>
    </message>
    <message>
        <source>Axis</source>
        <translation>Achse</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>Aktuell</translation>
    </message>
    <message>
        <source>Target</source>
        <translation>Ziel</translation>
    </message>
    <message>
        <source>Jog</source>
        <translation>Tippen</translation>
    </message>
    <message>
        <source>Axis %1</source>
        <translation>Achse %1</translation>
    </message>
    <message>
        <source>%1: target</source>
        <translation>%1: Ziel</translation>
    </message>
    <message>
        <source>%1: one step back</source>
        <translation>%1: einen Schritt zurück</translation>
    </message>
    <message>
        <source>%1: one step forward</source>
        <translation>%1: einen Schritt vor</translation>
    </message>
    <message>
        <source>Move axis %1 back by one step</source>
        <translation>Achse %1 um einen Schritt zurück bewegen</translation>
    </message>
    <message>
        <source>Move axis %1 forward by one step</source>
        <translation>Achse %1 um einen Schritt vor bewegen</translation>
    </message>
    <message>
        <source>Step</source>
        <translation>Schrittweite</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Geschwindigkeit</translation>
    </message>
    <message>
        <source>Go</source>
        <translation>Los</translation>
    </message>
    <message>
        <source>Send all axes to their targets at this speed</source>
        <translation>Alle Achsen mit dieser Geschwindigkeit an ihre Ziele schicken</translation>
    </message>
    <message>
        <source>Hold</source>
        <translation>Halten</translation>
    </message>
    <message>
        <source>Stop all axes where they are</source>
        <translation>Alle Achsen anhalten, wo sie sind</translation>
    </message>
    <message>
        <source>Stored positions</source>
        <translation>Gespeicherte Positionen</translation>
    </message>
    <message>
        <source>Go to</source>
        <translation>Anfahren</translation>
    </message>
    <message>
        <source>Send the arm to the chosen position at the speeds stored with it</source>
        <translation>Den Arm zur gewählten Position schicken, mit den Geschwindigkeiten, die mit ihr gespeichert sind</translation>
    </message>
    <message>
        <source>Switch torque on</source>
        <translation>Drehmoment einschalten</translation>
    </message>
    <message>
        <source>Switch line %1 on</source>
        <translation>Leitung %1 einschalten</translation>
    </message>
    <message>
        <source>° / mm</source>
        <translation>° / mm</translation>
    </message>
    <message>
        <source>°/s, mm/s</source>
        <translation>°/s, mm/s</translation>
    </message>
    <message>
        <source>°/s</source>
        <translation>°/s</translation>
    </message>
    <message>
        <source>Release</source>
        <translation>Freigeben</translation>
    </message>
    <message>
        <source>Lets the robot move again. Make sure that nobody is in its way.</source>
        <translation>Lässt den Roboter sich wieder bewegen. Vergewissern Sie sich, dass niemand im Weg ist.</translation>
    </message>
</context>
<context>
    <name>host::workbench::armview::Hindrance</name>
    <message>
        <source>The device is not connected.</source>
        <translation>Das Gerät ist nicht verbunden.</translation>
    </message>
    <message>
        <source>Another client is in control of the robot.</source>
        <translation>Ein anderer Client hat die Steuerung des Roboters.</translation>
    </message>
    <message>
        <source>The robot does not listen to %1. If its arm has another name for commands, enter it in Robot &gt; Names….</source>
        <translation>Der Roboter nimmt auf %1 nichts entgegen. Hat sein Arm für Befehle einen anderen Namen, geben Sie ihn unter Roboter &gt; Namen… ein.</translation>
    </message>
    <message>
        <source>The robot is stopped. It moves again after the stop is released.</source>
        <translation>Der Roboter ist angehalten. Er bewegt sich wieder, wenn der Halt freigegeben ist.</translation>
    </message>
    <message>
        <source>The arm has no torque.</source>
        <translation>Der Arm hat kein Drehmoment.</translation>
    </message>
    <message>
        <source>Where the arm is was last told %1 ago.</source>
        <translation>Wo der Arm ist, hat der Roboter zuletzt vor %1 gemeldet.</translation>
    </message>
    <message>
        <source>The robot has not told where its arm is.</source>
        <translation>Der Roboter hat nicht gemeldet, wo sein Arm ist.</translation>
    </message>
    <message>
        <source>Supply line %1 is off: axes %2 to %3 do not move.</source>
        <translation>Versorgungsleitung %1 ist aus: Die Achsen %2 bis %3 bewegen sich nicht.</translation>
    </message>
</context>
<context>
    <name>host::workbench::armview::StoredPositions</name>
    <message>
        <source>Axis %1: %2 [%3]</source>
        <translation>Achse %1: %2 [%3]</translation>
    </message>
</context>
<context>
    <name>host::workbench::armview::Trajectory</name>
    <message>
        <source>the position of axis %1 is not known</source>
        <translation>die Position der Achse %1 ist nicht bekannt</translation>
    </message>
    <message>
        <source>the target of axis %1 is %2, not from %3 to %4</source>
        <translation>das Ziel der Achse %1 ist %2, nicht von %3 bis %4</translation>
    </message>
    <message>
        <source>the speed of axis %1 is %2, not from 0 to %3</source>
        <translation>die Geschwindigkeit der Achse %1 ist %2, nicht von 0 bis %3</translation>
    </message>
    <message>
        <source>no axis has a target</source>
        <translation>keine Achse hat ein Ziel</translation>
    </message>
</context>
<context>
    <name>host::workbench::bugreport::BugReportDialog</name>
    <message>
        <source>Save a bug report</source>
        <translation>Fehlerbericht speichern</translation>
    </message>
    <message>
        <source>The checked files go into the report. Addresses, certificates and histories have been taken out; read what is left before you pass it on.</source>
        <translation>Die angehakten Dateien kommen in den Bericht. Adressen, Zertifikate und Verläufe sind entfernt; lesen Sie, was übrig ist, bevor Sie es weitergeben.</translation>
    </message>
    <message>
        <source>Files of the report</source>
        <translation>Dateien des Berichts</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Content of the file</source>
        <translation>Inhalt der Datei</translation>
    </message>
    <message>
        <source>&amp;Save…</source>
        <translation>&amp;Speichern…</translation>
    </message>
    <message>
        <source>The last recording, %1, with all that the robot sent. Addresses in it are not taken out.</source>
        <translation>Die letzte Aufzeichnung, %1, mit allem, was der Roboter gesendet hat. Adressen darin sind nicht entfernt.</translation>
    </message>
    <message>
        <source>Save the bug report</source>
        <translation>Fehlerbericht speichern</translation>
    </message>
    <message>
        <source>Compressed archives (*.tar.gz)</source>
        <translation>Komprimierte Archive (*.tar.gz)</translation>
    </message>
</context>
<context>
    <name>host::workbench::bugreport::ReportArchive</name>
    <message>
        <source>there is no room for temporary files</source>
        <translation>für temporäre Dateien ist kein Platz</translation>
    </message>
    <message>
        <source>%1 was not written: %2. Choose another folder, or free disk space.</source>
        <translation>%1 wurde nicht geschrieben: %2. Wählen Sie einen anderen Ordner, oder schaffen Sie Platz auf der Festplatte.</translation>
    </message>
</context>
<context>
    <name>host::workbench::camera::CameraDock</name>
    <message>
        <source>Camera</source>
        <translation>Kamera</translation>
    </message>
    <message>
        <source>The newest picture of the robot&apos;s camera</source>
        <translation>Das neueste Bild der Kamera des Roboters</translation>
    </message>
</context>
<context>
    <name>host::workbench::camera::CameraState</name>
    <message>
        <source>Not connected.</source>
        <translation>Nicht verbunden.</translation>
    </message>
    <message>
        <source>A picture on %1 cannot be shown: %2.</source>
        <translation>Ein Bild auf %1 kann nicht gezeigt werden: %2.</translation>
    </message>
    <message>
        <source>The robot does not publish %1. If it has another name for its pictures, enter it in Robot &gt; Names….</source>
        <translation>Der Roboter veröffentlicht %1 nicht. Hat er für seine Bilder einen anderen Namen, geben Sie ihn unter Roboter &gt; Namen… ein.</translation>
    </message>
    <message>
        <source>The robot publishes %1 as %2, not as %3.</source>
        <translation>Der Roboter veröffentlicht %1 als %2, nicht als %3.</translation>
    </message>
    <message>
        <source>Waiting for a picture on %1 …</source>
        <translation>Es wird auf ein Bild auf %1 gewartet …</translation>
    </message>
    <message>
        <source>The picture is %1 old.</source>
        <translation>Das Bild ist %1 alt.</translation>
    </message>
    <message>
        <source>%1 × %2</source>
        <translation>%1 × %2</translation>
    </message>
    <message>
        <source>%1 Hz</source>
        <translation>%1 Hz</translation>
    </message>
    <message>
        <source>%1 old</source>
        <translation>%1 alt</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1 min</translation>
    </message>
</context>
<context>
    <name>host::workbench::camera::CompressedPicture</name>
    <message>
        <source>is neither JPEG nor PNG; the robot calls it &quot;%1&quot;</source>
        <translation>ist weder JPEG noch PNG; der Roboter nennt es „%1“</translation>
    </message>
    <message>
        <source>has more than %1 scans</source>
        <translation>hat mehr als %1 Durchgänge</translation>
    </message>
    <message>
        <source>has %1 × %2 pixels; at most %3 are accepted</source>
        <translation>hat %1 × %2 Pixel; höchstens %3 werden angenommen</translation>
    </message>
    <message>
        <source>cannot be decoded: %1</source>
        <translation>lässt sich nicht dekodieren: %1</translation>
    </message>
</context>
<context>
    <name>host::workbench::events::EventModel</name>
    <message>
        <source>Debug</source>
        <translation>Debug</translation>
    </message>
    <message>
        <source>Info</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Fatal</source>
        <translation>Fatal</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Stufe</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Quelle</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
</context>
<context>
    <name>host::workbench::events::EventsDock</name>
    <message>
        <source>Events</source>
        <translation>Ereignisse</translation>
    </message>
    <message>
        <source>Filter:</source>
        <translation>Filter:</translation>
    </message>
    <message>
        <source>Part of a text, a source, …</source>
        <translation>Teil eines Textes, einer Quelle …</translation>
    </message>
    <message>
        <source>Filter of the events</source>
        <translation>Filter der Ereignisse</translation>
    </message>
    <message>
        <source>Level:</source>
        <translation>Stufe:</translation>
    </message>
    <message>
        <source>Lowest level</source>
        <translation>Niedrigste Stufe</translation>
    </message>
    <message>
        <source>%1 or worse</source>
        <translation>%1 oder schlimmer</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>What happened</source>
        <translation>Was geschah</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Freeze the list; events are still recorded.</source>
        <translation>Die Liste bleibt stehen; Ereignisse werden weiter aufgezeichnet.</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>Discard all events.</source>
        <translation>Alle Ereignisse verwerfen.</translation>
    </message>
    <message>
        <source>Save …</source>
        <translation>Speichern …</translation>
    </message>
    <message>
        <source>Save the listed events as comma-separated values.</source>
        <translation>Die aufgeführten Ereignisse als durch Kommas getrennte Werte speichern.</translation>
    </message>
    <message>
        <source>Save the events</source>
        <translation>Ereignisse speichern</translation>
    </message>
</context>
<context>
    <name>host::workbench::faults::FaultsMenu</name>
    <message>
        <source>%1 ms</source>
        <translation>%1 ms</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>One in %1</source>
        <translation>Eine von %1</translation>
    </message>
    <message>
        <source>No widget has registered a variable</source>
        <translation>Kein Widget hat eine Variable registriert</translation>
    </message>
    <message>
        <source>Fa&amp;ults</source>
        <translation>Störun&amp;gen</translation>
    </message>
    <message>
        <source>&amp;Drop the link</source>
        <translation>Verbindung &amp;abreißen</translation>
    </message>
    <message>
        <source>The connection ends as if the robot had vanished.</source>
        <translation>Die Verbindung endet, als wäre der Roboter verschwunden.</translation>
    </message>
    <message>
        <source>&amp;Refuse the next connection</source>
        <translation>&amp;Nächste Verbindung abweisen</translation>
    </message>
    <message>
        <source>The next attempt to connect fails as if no robot were listening. Only that one.</source>
        <translation>Der nächste Verbindungsversuch scheitert, als wäre kein Roboter da. Nur dieser eine.</translation>
    </message>
    <message>
        <source>&amp;Another client in control</source>
        <translation>Anderer &amp;Client hat die Steuerung</translation>
    </message>
    <message>
        <source>The device is connected passively, at once or from the next connection on: it receives data but cannot command the robot.</source>
        <translation>Das Gerät ist passiv verbunden, sofort oder ab der nächsten Verbindung: Es empfängt Daten, kann dem Roboter aber nichts befehlen.</translation>
    </message>
    <message>
        <source>&amp;Slow answers</source>
        <translation>&amp;Langsame Antworten</translation>
    </message>
    <message>
        <source>Connecting and each of the robot&apos;s answers take that much longer. The device still waits 5 s for each: anything slower fails.</source>
        <translation>Das Verbinden und jede Antwort des Roboters dauern um so viel länger. Das Gerät wartet auf jede weiterhin 5 s: Was länger dauert, scheitert.</translation>
    </message>
    <message>
        <source>&amp;Lose messages</source>
        <translation>Nachrichten &amp;verlieren</translation>
    </message>
    <message>
        <source>One in so many of the robot&apos;s messages on each topic does not arrive.</source>
        <translation>Von jedem Topic kommt eine von so vielen Nachrichten des Roboters nicht an.</translation>
    </message>
    <message>
        <source>&amp;Freeze the scan</source>
        <translation>Scan &amp;einfrieren</translation>
    </message>
    <message>
        <source>No new scan reaches the plugin.</source>
        <translation>Kein neuer Scan erreicht das Plugin.</translation>
    </message>
    <message>
        <source>Refuse &amp;writes</source>
        <translation>&amp;Schreiben verweigern</translation>
    </message>
    <message>
        <source>What a widget writes to the configuration is discarded: the widget reads the old value and is notified of it, and the base log reports it.</source>
        <translation>Was ein Widget in die Konfiguration schreibt, wird verworfen: Es liest den alten Wert und wird über ihn benachrichtigt, und das Protokoll der Basis meldet es.</translation>
    </message>
    <message>
        <source>Wrong &amp;type</source>
        <translation>&amp;Falscher Typ</translation>
    </message>
    <message>
        <source>Widgets get a value of another type for the checked variables. The device keeps the right one.</source>
        <translation>Widgets erhalten für die angekreuzten Variablen einen Wert von einem anderen Typ. Das Gerät behält den richtigen.</translation>
    </message>
    <message>
        <source>Send a &amp;message…</source>
        <translation>Nachricht sen&amp;den…</translation>
    </message>
    <message>
        <source>Sends all widgets a message of any role and value.</source>
        <translation>Sendet allen Widgets eine Nachricht von beliebiger Rolle und beliebigem Wert.</translation>
    </message>
    <message>
        <source>&amp;End all faults</source>
        <translation>Alle Störungen &amp;beenden</translation>
    </message>
    <message>
        <source>The device works normally again.</source>
        <translation>Das Gerät arbeitet wieder normal.</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
</context>
<context>
    <name>host::workbench::faults::MessageDialog</name>
    <message>
        <source>Line of the base log</source>
        <translation>Zeile im Protokoll der Basis</translation>
    </message>
    <message>
        <source>Line of the manipulator log</source>
        <translation>Zeile im Protokoll des Manipulators</translation>
    </message>
    <message>
        <source>Line of the laser log</source>
        <translation>Zeile im Protokoll des Lasers</translation>
    </message>
    <message>
        <source>Emphasised line of the base log</source>
        <translation>Hervorgehobene Zeile im Protokoll der Basis</translation>
    </message>
    <message>
        <source>State of the connection</source>
        <translation>Zustand der Verbindung</translation>
    </message>
    <message>
        <source>State of the connection, for the icon</source>
        <translation>Zustand der Verbindung, für das Symbol</translation>
    </message>
    <message>
        <source>Message to the widgets of %1</source>
        <translation>Nachricht an die Widgets von %1</translation>
    </message>
    <message>
        <source>&amp;Meaning:</source>
        <translation>&amp;Bedeutung:</translation>
    </message>
    <message>
        <source>Meaning of the message</source>
        <translation>Bedeutung der Nachricht</translation>
    </message>
    <message>
        <source>Another one</source>
        <translation>Eine andere</translation>
    </message>
    <message>
        <source>&amp;Role:</source>
        <translation>&amp;Rolle:</translation>
    </message>
    <message>
        <source>Number of the role</source>
        <translation>Nummer der Rolle</translation>
    </message>
    <message>
        <source>&amp;Type:</source>
        <translation>&amp;Typ:</translation>
    </message>
    <message>
        <source>Type of the value</source>
        <translation>Typ des Werts</translation>
    </message>
    <message>
        <source>&amp;Value:</source>
        <translation>&amp;Wert:</translation>
    </message>
    <message>
        <source>Value of the message</source>
        <translation>Wert der Nachricht</translation>
    </message>
    <message>
        <source>&amp;Send</source>
        <translation>&amp;Senden</translation>
    </message>
    <message>
        <source>Sends the message to all widgets of the device.</source>
        <translation>Sendet die Nachricht an alle Widgets des Geräts.</translation>
    </message>
</context>
<context>
    <name>host::workbench::help::HelpPanel</name>
    <message>
        <source>This link leads outside the program: %1</source>
        <translation>Dieser Verweis führt aus dem Programm hinaus: %1</translation>
    </message>
</context>
<context>
    <name>host::workbench::names::JointsBox</name>
    <message>
        <source>Axis here</source>
        <translation>Achse hier</translation>
    </message>
    <message>
        <source>Joint on the robot</source>
        <translation>Gelenk am Roboter</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>Richtung</translation>
    </message>
    <message>
        <source>deg</source>
        <translation>Grad</translation>
    </message>
    <message>
        <source>Axis %1</source>
        <translation>Achse %1</translation>
    </message>
    <message>
        <source>%1: joint on the robot</source>
        <translation>%1: Gelenk am Roboter</translation>
    </message>
    <message>
        <source>%1: unit</source>
        <translation>%1: Einheit</translation>
    </message>
    <message>
        <source>reversed</source>
        <translation>umgekehrt</translation>
    </message>
    <message>
        <source>%1: reversed</source>
        <translation>%1: umgekehrt</translation>
    </message>
    <message>
        <source> and %1 more</source>
        <translation> und %1 weitere</translation>
    </message>
    <message>
        <source>Joints without an axis: %1.</source>
        <translation>Gelenke ohne Achse: %1.</translation>
    </message>
    <message>
        <source>Enter which of the robot&apos;s joints are the axes of the arm. This changes only what is shown and stored here; nothing is sent to the robot. If the robot has no joints &quot;axis0&quot; to &quot;axis8&quot;, the table starts with a guess. Clear a field to leave an axis out.</source>
        <translation>Tragen Sie ein, welche Gelenke des Roboters die Achsen des Arms sind. Das ändert nur, was hier angezeigt und gespeichert wird; an den Roboter wird nichts gesendet. Hat der Roboter keine Gelenke „axis0“ bis „axis8“, beginnt die Tabelle mit einer Vermutung. Ein leeres Feld lässt die Achse aus.</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>Offset</source>
        <translation>Versatz</translation>
    </message>
    <message>
        <source>%1: offset</source>
        <translation>%1: Versatz</translation>
    </message>
    <message>
        <source>The axis&apos;s value where the joint is at 0</source>
        <translation>Der Wert der Achse, wenn das Gelenk bei 0 steht</translation>
    </message>
</context>
<context>
    <name>host::workbench::names::NamesDialog</name>
    <message>
        <source>Names used by the robot of %1</source>
        <translation>Namen beim Roboter von %1</translation>
    </message>
    <message>
        <source>Enter what this robot calls the topics and services used here. Type &quot;/&quot; in a field to list what the robot offers; clear a field to restore the standard name.</source>
        <translation>Geben Sie ein, wie dieser Roboter die hier verwendeten Topics und Services nennt. „/“ in einem Feld zeigt, was der Roboter anbietet; ein leeres Feld erhält wieder den Standardnamen.</translation>
    </message>
    <message>
        <source>Name here</source>
        <translation>Name hier</translation>
    </message>
    <message>
        <source>Purpose</source>
        <translation>Zweck</translation>
    </message>
    <message>
        <source>Name on the robot</source>
        <translation>Name beim Roboter</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Stand</translation>
    </message>
    <message>
        <source>Topics</source>
        <translation>Topics</translation>
    </message>
    <message>
        <source>Services</source>
        <translation>Services</translation>
    </message>
    <message>
        <source>&amp;Reset to standard</source>
        <translation>Auf Standard &amp;zurücksetzen</translation>
    </message>
    <message>
        <source>Name of %1 on the robot</source>
        <translation>Name von %1 beim Roboter</translation>
    </message>
    <message>
        <source>Type: %1</source>
        <translation>Typ: %1</translation>
    </message>
    <message>
        <source>not connected</source>
        <translation>nicht verbunden</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>unbekannt</translation>
    </message>
    <message>
        <source>offered</source>
        <translation>angeboten</translation>
    </message>
    <message>
        <source>not offered</source>
        <translation>nicht angeboten</translation>
    </message>
    <message>
        <source>not offered, not needed</source>
        <translation>nicht angeboten, nicht nötig</translation>
    </message>
    <message>
        <source>another type: %1</source>
        <translation>anderer Typ: %1</translation>
    </message>
    <message>
        <source>Joints of the arm</source>
        <translation>Gelenke des Arms</translation>
    </message>
    <message>
        <source>Restores the names that are used here, and the joints.</source>
        <translation>Stellt die hier verwendeten Namen und die Gelenke wieder her.</translation>
    </message>
    <message>
        <source>Topics for commands</source>
        <translation>Topics für Befehle</translation>
    </message>
</context>
<context>
    <name>host::workbench::operation::ControlMenu</name>
    <message>
        <source>Con&amp;trol</source>
        <translation>&amp;Steuerung</translation>
    </message>
    <message>
        <source>&amp;Take control</source>
        <translation>Steuerung über&amp;nehmen</translation>
    </message>
    <message>
        <source>Take control when it is &amp;free</source>
        <translation>Steuerung übernehmen, sobald sie &amp;frei ist</translation>
    </message>
    <message>
        <source>&amp;Release control</source>
        <translation>Steuerung a&amp;bgeben</translation>
    </message>
</context>
<context>
    <name>host::workbench::operation::DriveDock</name>
    <message>
        <source>Drive</source>
        <translation>Fahren</translation>
    </message>
    <message>
        <source>Hold to drive: drag from the centre, or hold the arrow keys or W, A, S and D. Letting go stops the robot.</source>
        <translation>Zum Fahren halten: von der Mitte aus ziehen, oder die Pfeiltasten oder W, A, S und D halten. Loslassen hält den Roboter an.</translation>
    </message>
    <message>
        <source>Speed, at most:</source>
        <translation>Tempo, höchstens:</translation>
    </message>
    <message>
        <source> m/s</source>
        <translation> m/s</translation>
    </message>
    <message>
        <source>Turning, at most:</source>
        <translation>Drehung, höchstens:</translation>
    </message>
    <message>
        <source> rad/s</source>
        <translation> rad/s</translation>
    </message>
    <message>
        <source>Ready: hold to drive.</source>
        <translation>Bereit: zum Fahren halten.</translation>
    </message>
    <message>
        <source>Driving.</source>
        <translation>Fährt.</translation>
    </message>
</context>
<context>
    <name>host::workbench::operation::OperationBar</name>
    <message>
        <source>Operation</source>
        <translation>Bedienung</translation>
    </message>
    <message>
        <source>Release</source>
        <translation>Freigeben</translation>
    </message>
    <message>
        <source>Lets the robot move again. Make sure that nobody is in its way.</source>
        <translation>Lässt den Roboter sich wieder bewegen. Vergewissern Sie sich, dass niemand im Weg ist.</translation>
    </message>
    <message>
        <source>Only the device in control can let the robot move again: take control first.</source>
        <translation>Nur das Gerät mit der Steuerung kann den Roboter freigeben: Übernehmen Sie zuerst die Steuerung.</translation>
    </message>
    <message>
        <source>In control</source>
        <translation>Mit Steuerung</translation>
    </message>
    <message>
        <source>Not in control</source>
        <translation>Ohne Steuerung</translation>
    </message>
    <message>
        <source>Waiting for control</source>
        <translation>Wartet auf Steuerung</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>Steuerung</translation>
    </message>
</context>
<context>
    <name>host::workbench::operation::StopButton</name>
    <message>
        <source>Stopping…</source>
        <translation>Hält an…</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>Angehalten</translation>
    </message>
    <message>
        <source>Stop (%1)</source>
        <translation>Halt (%1)</translation>
    </message>
    <message>
        <source>%1 does the same to the robots of all devices in the window, wherever the keyboard focus is.</source>
        <translation>%1 tut dasselbe bei den Robotern aller Geräte im Fenster, wo auch immer der Tastaturfokus ist.</translation>
    </message>
</context>
<context>
    <name>host::workbench::plots::PlotsDock</name>
    <message>
        <source>Plots</source>
        <translation>Verläufe</translation>
    </message>
    <message>
        <source>Quantity:</source>
        <translation>Größe:</translation>
    </message>
    <message>
        <source>Part of a name</source>
        <translation>Teil eines Namens</translation>
    </message>
    <message>
        <source>Quantity to plot</source>
        <translation>Größe, die gezeichnet wird</translation>
    </message>
    <message>
        <source>The arm&apos;s axes, the rates and numbers of the robot&apos;s topics, and the device&apos;s variables</source>
        <translation>Die Achsen des Arms, die Raten und Zahlen der Topics des Roboters und die Variablen des Geräts</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Plot this quantity as well; %1 at most.</source>
        <translation>Auch diese Größe zeichnen; höchstens %1.</translation>
    </message>
    <message>
        <source>Time:</source>
        <translation>Zeit:</translation>
    </message>
    <message>
        <source>Time in sight</source>
        <translation>Sichtbare Zeit</translation>
    </message>
    <message>
        <source>10 s</source>
        <translation>10 s</translation>
    </message>
    <message>
        <source>1 min</source>
        <translation>1 min</translation>
    </message>
    <message>
        <source>10 min</source>
        <translation>10 min</translation>
    </message>
    <message>
        <source>1 h</source>
        <translation>1 h</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Freeze the plot to look back: drag it, or use the wheel or the keys ←, →, + and −. Values are still recorded.</source>
        <translation>Das Bild anhalten, um zurückzublicken: mit der Maus ziehen, mit dem Mausrad oder den Tasten ←, →, + und −. Werte werden weiter aufgezeichnet.</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>Discard all values; the lines stay.</source>
        <translation>Alle Werte verwerfen; die Linien bleiben.</translation>
    </message>
    <message>
        <source>Save …</source>
        <translation>Speichern …</translation>
    </message>
    <message>
        <source>Save all recorded values as comma-separated values.</source>
        <translation>Alle aufgezeichneten Werte als kommagetrennte Werte speichern.</translation>
    </message>
    <message>
        <source>The chosen quantities over time</source>
        <translation>Die gewählten Größen über die Zeit</translation>
    </message>
    <message>
        <source>Choose a quantity above and press &quot;Add&quot;.</source>
        <translation>Oben eine Größe wählen und „Hinzufügen“ drücken.</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Linie</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Lines of the plot</source>
        <translation>Linien im Bild</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Remove the selected line from the plot.</source>
        <translation>Die ausgewählte Linie aus dem Bild entfernen.</translation>
    </message>
    <message>
        <source>Save the plotted values</source>
        <translation>Gezeichnete Werte speichern</translation>
    </message>
</context>
<context>
    <name>host::workbench::plots::PointTable</name>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
</context>
<context>
    <name>host::workbench::plots::Quantity</name>
    <message>
        <source>Axis %1: current</source>
        <translation>Achse %1: aktuell</translation>
    </message>
    <message>
        <source>Axis %1: target</source>
        <translation>Achse %1: Ziel</translation>
    </message>
    <message>
        <source>%1: rate</source>
        <translation>%1: Rate</translation>
    </message>
    <message>
        <source>mm</source>
        <translation>mm</translation>
    </message>
    <message>
        <source>°</source>
        <translation>°</translation>
    </message>
    <message>
        <source>Hz</source>
        <translation>Hz</translation>
    </message>
</context>
<context>
    <name>host::workbench::plugin::FailureCard</name>
    <message>
        <source>File of the plugin</source>
        <translation>Datei des Plugins</translation>
    </message>
</context>
<context>
    <name>host::workbench::plugin::PluginAccess</name>
    <message>
        <source>Select all</source>
        <translation>Alles auswählen</translation>
    </message>
    <message>
        <source>Log</source>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>Button</source>
        <translation>Schaltfläche</translation>
    </message>
    <message>
        <source>Option</source>
        <translation>Option</translation>
    </message>
    <message>
        <source>Input field</source>
        <translation>Eingabefeld</translation>
    </message>
    <message>
        <source>Selection</source>
        <translation>Auswahl</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Zahl</translation>
    </message>
    <message>
        <source>Table</source>
        <translation>Tabelle</translation>
    </message>
    <message>
        <source>Tree</source>
        <translation>Baum</translation>
    </message>
    <message>
        <source>List</source>
        <translation>Liste</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>host::workbench::plugin::PluginEnvironment</name>
    <message>
        <source>Help: %1</source>
        <translation>Hilfe: %1</translation>
    </message>
</context>
<context>
    <name>host::workbench::positions::ImportDialog</name>
    <message>
        <source>Import positions of %1</source>
        <translation>Positionen von %1 importieren</translation>
    </message>
    <message>
        <source>What becomes of the stored positions</source>
        <translation>Was mit den gespeicherten Positionen geschieht</translation>
    </message>
    <message>
        <source>Replace the stored positions</source>
        <translation>Die gespeicherten Positionen ersetzen</translation>
    </message>
    <message>
        <source>Add to the stored positions</source>
        <translation>Zu den gespeicherten Positionen hinzufügen</translation>
    </message>
    <message>
        <source>What changes</source>
        <translation>Was sich ändert</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Änderung</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Axis %1</source>
        <translation>Achse %1</translation>
    </message>
    <message>
        <source>&amp;Import</source>
        <translation>&amp;Importieren</translation>
    </message>
    <message>
        <source>added</source>
        <translation>neu</translation>
    </message>
    <message>
        <source>removed</source>
        <translation>entfernt</translation>
    </message>
    <message>
        <source>changed</source>
        <translation>geändert</translation>
    </message>
    <message>
        <source>These would be %1 positions; the device has room for %2.</source>
        <translation>Das wären %1 Positionen; das Gerät hat Platz für %2.</translation>
    </message>
    <message>
        <source>Nothing would change.</source>
        <translation>Es würde sich nichts ändern.</translation>
    </message>
    <message>
        <source>Import positions</source>
        <translation>Positionen importieren</translation>
    </message>
    <message>
        <source>Positions from %1</source>
        <translation>Positionen aus %1</translation>
    </message>
</context>
<context>
    <name>host::workbench::positions::PositionHistory</name>
    <message>
        <source>edit positions</source>
        <translation>Positionen ändern</translation>
    </message>
    <message>
        <source>add a position</source>
        <translation>Position hinzufügen</translation>
    </message>
    <message>
        <source>add %1 positions</source>
        <translation>%1 Positionen hinzufügen</translation>
    </message>
    <message>
        <source>remove a position</source>
        <translation>Position entfernen</translation>
    </message>
    <message>
        <source>remove %1 positions</source>
        <translation>%1 Positionen entfernen</translation>
    </message>
</context>
<context>
    <name>host::workbench::positions::PositionTable</name>
    <message>
        <source>the name &quot;%1&quot; has the character &quot;%2&quot;, which a device cannot store</source>
        <translation>der Name „%1“ enthält das Zeichen „%2“, das ein Gerät nicht speichern kann</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is not a number</source>
        <translation>%1: „%2“ ist keine Zahl</translation>
    </message>
    <message>
        <source>Row %1: %2.</source>
        <translation>Zeile %1: %2.</translation>
    </message>
    <message>
        <source>This is not text in UTF-8.</source>
        <translation>Das ist kein Text in UTF-8.</translation>
    </message>
    <message>
        <source>A quote is not closed.</source>
        <translation>Ein Anführungszeichen fehlt.</translation>
    </message>
    <message>
        <source>The first row must have the names of the columns: %1, %2 … %3.</source>
        <translation>In der ersten Zeile müssen die Namen der Spalten stehen: %1, %2 … %3.</translation>
    </message>
    <message>
        <source>%1 columns instead of %2</source>
        <translation>%1 Spalten statt %2</translation>
    </message>
</context>
<context>
    <name>host::workbench::positions::PositionsMenu</name>
    <message>
        <source>%1 was not read: it is not a file.</source>
        <translation>%1 wurde nicht gelesen: Das ist keine Datei.</translation>
    </message>
    <message>
        <source>%1 was not read: %2.</source>
        <translation>%1 wurde nicht gelesen: %2.</translation>
    </message>
    <message>
        <source>%1 was not read: it is larger than any table of positions.</source>
        <translation>%1 wurde nicht gelesen: Die Datei ist größer als jede Tabelle von Positionen.</translation>
    </message>
    <message>
        <source>the clipboard</source>
        <translation>der Zwischenablage</translation>
    </message>
    <message>
        <source>Import positions</source>
        <translation>Positionen importieren</translation>
    </message>
    <message>
        <source>Export positions</source>
        <translation>Positionen exportieren</translation>
    </message>
    <message>
        <source>No positions were read from %1. %2</source>
        <translation>Aus %1 wurden keine Positionen gelesen. %2</translation>
    </message>
    <message>
        <source>&amp;Positions</source>
        <translation>&amp;Positionen</translation>
    </message>
    <message>
        <source>&amp;Undo: %1</source>
        <translation>&amp;Rückgängig: %1</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo: %1</source>
        <translation>&amp;Wiederherstellen: %1</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>&amp;Copy all</source>
        <translation>&amp;Alle kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste…</source>
        <translation>&amp;Einfügen…</translation>
    </message>
    <message>
        <source>&amp;Import…</source>
        <translation>&amp;Importieren…</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>E&amp;xportieren…</translation>
    </message>
</context>
<context>
    <name>host::workbench::preferences::Appearance</name>
    <message>
        <source>As the &amp;system</source>
        <translation>Wie das &amp;System</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Dunkel</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Hell</translation>
    </message>
    <message>
        <source>&amp;Appearance</source>
        <translation>A&amp;ussehen</translation>
    </message>
</context>
<context>
    <name>host::workbench::preferences::Language</name>
    <message>
        <source>Pseudo (for developers)</source>
        <translation>Pseudo (für Entwickler)</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Sprache</translation>
    </message>
</context>
<context>
    <name>host::workbench::preferences::LostLinks</name>
    <message>
        <source>&amp;Lost connections</source>
        <translation>Ver&amp;lorene Verbindungen</translation>
    </message>
    <message>
        <source>Connect again by itself</source>
        <translation>Von selbst wieder verbinden</translation>
    </message>
    <message>
        <source>Leave closed</source>
        <translation>Geschlossen lassen</translation>
    </message>
</context>
<context>
    <name>host::workbench::preferences::OtherNodes</name>
    <message>
        <source>Log of other &amp;nodes</source>
        <translation>Protokoll anderer &amp;Knoten</translation>
    </message>
    <message>
        <source>All messages</source>
        <translation>Alle Meldungen</translation>
    </message>
    <message>
        <source>Warnings and errors</source>
        <translation>Warnungen und Fehler</translation>
    </message>
</context>
<context>
    <name>host::workbench::recording::RecordButton</name>
    <message>
        <source>Nothing is recorded: %1. Choose another file.</source>
        <translation>Es wird nichts aufgezeichnet: %1. Wählen Sie eine andere Datei.</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Aufzeichnen</translation>
    </message>
    <message>
        <source>ROS bags (*.bag)</source>
        <translation>ROS-Bags (*.bag)</translation>
    </message>
    <message>
        <source>Stop &amp;recording</source>
        <translation>Aufzeichnung &amp;beenden</translation>
    </message>
    <message>
        <source>&amp;Record…</source>
        <translation>Auf&amp;zeichnen…</translation>
    </message>
    <message>
        <source>Stop recording to %1.</source>
        <translation>Die Aufzeichnung in %1 beenden.</translation>
    </message>
    <message>
        <source>Record the robot&apos;s topics and the calls between host and plugin to a ROS bag.</source>
        <translation>Die Topics des Roboters und die Aufrufe zwischen Host und Plugin in einem ROS-Bag aufzeichnen.</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>Aufzeichnung beenden</translation>
    </message>
</context>
<context>
    <name>host::workbench::replay::Assertion</name>
    <message>
        <source>The plugin did the same: %1 calls played, %2 calls compared.</source>
        <translation>Das Plugin tat dasselbe: %1 Aufrufe abgespielt, %2 Aufrufe verglichen.</translation>
    </message>
</context>
<context>
    <name>host::workbench::replay::ReplayBar</name>
    <message>
        <source>As fast as it goes</source>
        <translation>So schnell wie möglich</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Position in the recording. Arrow keys move it by a second.</source>
        <translation>Position in der Aufzeichnung. Die Pfeiltasten verschieben sie um eine Sekunde.</translation>
    </message>
    <message>
        <source>&amp;Next call</source>
        <translation>&amp;Nächster Aufruf</translation>
    </message>
    <message>
        <source>Play one call and stop (F6).</source>
        <translation>Einen Aufruf abspielen und anhalten (F6).</translation>
    </message>
    <message>
        <source>Next &amp;long call</source>
        <translation>Nächster &amp;langer Aufruf</translation>
    </message>
    <message>
        <source>Go to the next call that took more than %1 ms when it was recorded, and stop (F7).</source>
        <translation>Zum nächsten Aufruf gehen, der bei der Aufzeichnung mehr als %1 ms dauerte, und anhalten (F7).</translation>
    </message>
    <message>
        <source>L&amp;oop</source>
        <translation>Wieder&amp;holen</translation>
    </message>
    <message>
        <source>Begin again at the end.</source>
        <translation>Am Ende wieder von vorn beginnen.</translation>
    </message>
    <message>
        <source>Sp&amp;eed:</source>
        <translation>T&amp;empo:</translation>
    </message>
    <message>
        <source>Replay without a robot</source>
        <translation>Wiedergabe ohne Roboter</translation>
    </message>
    <message>
        <source>Replay of %1. There is no robot: nothing is sent or stored.</source>
        <translation>Wiedergabe von %1. Es gibt keinen Roboter: Nichts wird gesendet oder gespeichert.</translation>
    </message>
    <message>
        <source>No call after this one took more than %1 ms.</source>
        <translation>Kein späterer Aufruf dauerte mehr als %1 ms.</translation>
    </message>
    <message>
        <source>&amp;Pause</source>
        <translation>&amp;Pause</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>&amp;Wiedergeben</translation>
    </message>
    <message>
        <source>Stop here (F5).</source>
        <translation>Hier anhalten (F5).</translation>
    </message>
    <message>
        <source>Play on from here (F5).</source>
        <translation>Ab hier wiedergeben (F5).</translation>
    </message>
    <message>
        <source>Before the first call</source>
        <translation>Vor dem ersten Aufruf</translation>
    </message>
    <message>
        <source>%1: %2, under way when the recording ended</source>
        <translation>%1: %2, beim Ende der Aufzeichnung noch im Gang</translation>
    </message>
    <message>
        <source>%1: %2 took %3 ms and threw an exception</source>
        <translation>%1: %2 dauerte %3 ms und warf eine Ausnahme</translation>
    </message>
    <message>
        <source>%1: %2 took %3 ms</source>
        <translation>%1: %2 dauerte %3 ms</translation>
    </message>
    <message>
        <source>%1: the plugin called %2 by itself, which took %3 ms</source>
        <translation>%1: Das Plugin rief von sich aus %2 auf, was %3 ms dauerte</translation>
    </message>
    <message>
        <source>How many times as fast as recorded.</source>
        <translation>Wievielmal so schnell wie aufgezeichnet.</translation>
    </message>
</context>
<context>
    <name>host::workbench::replay::ReplayView</name>
    <message>
        <source>&amp;Replay</source>
        <translation>&amp;Wiedergabe</translation>
    </message>
</context>
<context>
    <name>host::workbench::robotview::Footprint</name>
    <message>
        <source>has %1 points, not %2 to %3</source>
        <translation>hat %1 Punkte, nicht %2 bis %3</translation>
    </message>
    <message>
        <source>has a point %1 that is no place in metres</source>
        <translation>hat einen Punkt %1, der kein Ort in Metern ist</translation>
    </message>
</context>
<context>
    <name>host::workbench::robotview::GridMap</name>
    <message>
        <source>is %1, which is not a valid cell size in metres</source>
        <translation>ist %1, was keine gültige Zellgröße in Metern ist</translation>
    </message>
    <message>
        <source>has %1 cells, not %2 x %3</source>
        <translation>hat %1 Zellen, nicht %2 x %3</translation>
    </message>
</context>
<context>
    <name>host::workbench::robotview::LaserRays</name>
    <message>
        <source>its angles are not numbers</source>
        <translation>seine Winkel sind keine Zahlen</translation>
    </message>
</context>
<context>
    <name>host::workbench::robotview::RobotDock</name>
    <message>
        <source>Robot</source>
        <translation>Roboter</translation>
    </message>
    <message>
        <source>Keep the robot in the middle</source>
        <translation>Den Roboter in der Mitte halten</translation>
    </message>
    <message>
        <source>Show the whole map, or everything there is</source>
        <translation>Die ganze Karte zeigen, oder alles, was da ist</translation>
    </message>
    <message>
        <source>The robot&apos;s world from above</source>
        <translation>Die Welt des Roboters von oben</translation>
    </message>
    <message>
        <source>Parts of the robot</source>
        <translation>Teile des Roboters</translation>
    </message>
    <message>
        <source>Follow the ro&amp;bot</source>
        <translation>Dem Ro&amp;boter folgen</translation>
    </message>
    <message>
        <source>Sho&amp;w all</source>
        <translation>Alles &amp;zeigen</translation>
    </message>
    <message>
        <source>Zoom with the wheel, + and -; move by dragging or with the arrow keys; Home shows everything; dragging with Shift measures, until Escape.</source>
        <translation>Zoomen mit dem Mausrad, + und -; verschieben durch Ziehen oder mit den Pfeiltasten; Pos1 zeigt alles; Ziehen mit der Umschalttaste misst, bis Escape.</translation>
    </message>
</context>
<context>
    <name>host::workbench::robotview::RobotModel</name>
    <message>
        <source>%1°</source>
        <translation>%1°</translation>
    </message>
    <message>
        <source>%1 old</source>
        <translation>%1 alt</translation>
    </message>
    <message>
        <source>Part</source>
        <translation>Teil</translation>
    </message>
    <message>
        <source>Target</source>
        <translation>Ziel</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>Aktuell</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Kamera</translation>
    </message>
    <message>
        <source>Supply line %1</source>
        <translation>Versorgungsleitung %1</translation>
    </message>
    <message>
        <source>Torque</source>
        <translation>Drehmoment</translation>
    </message>
    <message>
        <source>Drive</source>
        <translation>Antrieb</translation>
    </message>
    <message>
        <source>no picture for %1</source>
        <translation>kein Bild seit %1</translation>
    </message>
    <message>
        <source>%1 Hz</source>
        <translation>%1 Hz</translation>
    </message>
    <message>
        <source>enabled</source>
        <translation>eingeschaltet</translation>
    </message>
    <message>
        <source>disabled</source>
        <translation>abgeschaltet</translation>
    </message>
    <message>
        <source>on</source>
        <translation>ein</translation>
    </message>
    <message>
        <source>off</source>
        <translation>aus</translation>
    </message>
    <message>
        <source>Axis %1</source>
        <translation>Achse %1</translation>
    </message>
    <message>
        <source>%1 mm</source>
        <translation>%1 mm</translation>
    </message>
</context>
<context>
    <name>host::workbench::robotview::RobotState</name>
    <message>
        <source>A message on the topic %1 was ignored: %2.</source>
        <translation>Eine Nachricht des Topics %1 wurde ignoriert: %2.</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1 min</translation>
    </message>
    <message>
        <source>Not connected: last seen %1.</source>
        <translation>Nicht verbunden: zuletzt gesehen um %1.</translation>
    </message>
    <message>
        <source>Not connected.</source>
        <translation>Nicht verbunden.</translation>
    </message>
    <message>
        <source>No map</source>
        <translation>Keine Karte</translation>
    </message>
    <message>
        <source>The map is not shown: the robot does not publish its position in the map&apos;s frame &quot;%1&quot;.</source>
        <translation>Die Karte wird nicht gezeigt: Der Roboter veröffentlicht seine Position im Koordinatensystem „%1“ der Karte nicht.</translation>
    </message>
    <message>
        <source>No position</source>
        <translation>Keine Position</translation>
    </message>
    <message>
        <source>The position is %1 old.</source>
        <translation>Die Position ist %1 alt.</translation>
    </message>
    <message>
        <source>No laser</source>
        <translation>Kein Laser</translation>
    </message>
    <message>
        <source>The laser is not shown: the robot does not publish where the laser&apos;s frame &quot;%1&quot; is.</source>
        <translation>Der Laser wird nicht gezeigt: Der Roboter veröffentlicht nicht, wo dessen Koordinatensystem „%1“ ist.</translation>
    </message>
    <message>
        <source>The laser&apos;s scan is %1 old.</source>
        <translation>Der Scan des Lasers ist %1 alt.</translation>
    </message>
    <message>
        <source>No axes of the arm</source>
        <translation>Keine Achsen des Arms</translation>
    </message>
    <message>
        <source>The axes&apos; positions are %1 old.</source>
        <translation>Die Positionen der Achsen sind %1 alt.</translation>
    </message>
    <message>
        <source>The axes&apos; targets are %1 old.</source>
        <translation>Die Ziele der Achsen sind %1 alt.</translation>
    </message>
    <message>
        <source> or </source>
        <translation> oder </translation>
    </message>
    <message>
        <source>%1: the robot does not publish %2.</source>
        <translation>%1: Der Roboter veröffentlicht %2 nicht.</translation>
    </message>
    <message>
        <source>%1: no valid message on %2 yet.</source>
        <translation>%1: noch keine gültige Nachricht auf %2.</translation>
    </message>
    <message>
        <source>No position: there are several robots on %1: %2. In Robot &gt; Names…, enter the names of one robot&apos;s %3 and %4.</source>
        <translation>Keine Position: Auf %1 sind mehrere Roboter: %2. Tragen Sie unter Roboter &gt; Namen… die Namen ein, die %3 und %4 bei einem von ihnen haben.</translation>
    </message>
    <message>
        <source>%1 and %2 more</source>
        <translation>%1 und %2 weitere</translation>
    </message>
    <message>
        <source>Joints without an axis are not shown: %1. Robot &gt; Names… lists the axes.</source>
        <translation>Gelenke ohne Achse werden nicht angezeigt: %1. Roboter &gt; Namen… nennt die Achsen.</translation>
    </message>
</context>
<context>
    <name>host::workbench::robotview::Ruler</name>
    <message>
        <source>x %1 m, y %2 m</source>
        <translation>x %1 m, y %2 m</translation>
    </message>
    <message>
        <source>%1 m at %2°</source>
        <translation>%1 m bei %2°</translation>
    </message>
</context>
<context>
    <name>host::workbench::robotview::Transform</name>
    <message>
        <source>is %1, which is not a position in metres</source>
        <translation>ist %1, was keine Position in Metern ist</translation>
    </message>
    <message>
        <source>is not a rotation: the sum of its squares is %1, not 1</source>
        <translation>ist keine Drehung: Die Summe der Quadrate ist %1, nicht 1</translation>
    </message>
</context>
<context>
    <name>host::workbench::robotview::TransformTree</name>
    <message>
        <source>is empty: no frame is named</source>
        <translation>ist leer: Es ist kein Koordinatensystem genannt</translation>
    </message>
    <message>
        <source>the field &quot;transforms&quot; is not an array</source>
        <translation>das Feld „transforms“ ist keine Liste</translation>
    </message>
    <message>
        <source>in element %1, %2</source>
        <translation>in Element %1, %2</translation>
    </message>
    <message>
        <source>the frame &quot;%1&quot; is its own ancestor</source>
        <translation>das Koordinatensystem „%1“ ist sein eigener Vorfahr</translation>
    </message>
    <message>
        <source>it results in more than %1 frames</source>
        <translation>sie ergibt mehr als %1 Koordinatensysteme</translation>
    </message>
    <message>
        <source>the field &quot;transforms&quot; has %1 frames; at most %2 are accepted</source>
        <translation>das Feld „transforms“ hat %1 Koordinatensysteme; höchstens %2 werden angenommen</translation>
    </message>
</context>
<context>
    <name>host::workbench::robotview::WorldView</name>
    <message>
        <source>%1 m</source>
        <translation>%1 m</translation>
    </message>
</context>
<context>
    <name>host::workbench::script::ActionCommands</name>
    <message>
        <source>it is no list of actions that device-plugin-check has written</source>
        <translation>das ist keine Liste von Handlungen, die device-plugin-check geschrieben hat</translation>
    </message>
    <message>
        <source>this cannot be done, since its control is not in sight: %1</source>
        <translation>das geht nicht, denn das Bedienelement dafür ist nicht zu sehen: %1</translation>
    </message>
</context>
<context>
    <name>host::workbench::script::ConnectionCommands</name>
    <message>
        <source>a number from -1 to 4</source>
        <translation>eine Zahl von -1 bis 4</translation>
    </message>
    <message>
        <source>a number above 0</source>
        <translation>eine Zahl über 0</translation>
    </message>
    <message>
        <source>the status line does not follow</source>
        <translation>die Statuszeile folgt nicht</translation>
    </message>
    <message>
        <source>the state is %1: %2</source>
        <translation>der Zustand ist %1: %2</translation>
    </message>
    <message>
        <source>the dock &quot;Robot&quot; is hidden</source>
        <translation>das Dock „Roboter“ ist ausgeblendet</translation>
    </message>
    <message>
        <source>the dock &quot;Robot&quot; does not show everything</source>
        <translation>das Dock „Roboter“ zeigt nicht alles</translation>
    </message>
    <message>
        <source>it has moved by %1 m</source>
        <translation>er hat sich um %1 m bewegt</translation>
    </message>
</context>
<context>
    <name>host::workbench::script::Controls</name>
    <message>
        <source>there are %1 controls &quot;%2&quot;; say in which control</source>
        <translation>es gibt %1 Bedienelemente „%2“; nennen Sie das Bedienelement, in dem es liegt</translation>
    </message>
    <message>
        <source>there is no control &quot;%1&quot; in sight; there are: %2</source>
        <translation>es ist kein Bedienelement „%1“ zu sehen; es gibt: %2</translation>
    </message>
</context>
<context>
    <name>host::workbench::script::DeviceCommands</name>
    <message>
        <source>a whole number</source>
        <translation>eine ganze Zahl</translation>
    </message>
    <message>
        <source>a whole number from 0</source>
        <translation>eine ganze Zahl ab 0</translation>
    </message>
    <message>
        <source>a number of seconds from 0 to %1</source>
        <translation>eine Zahl von Sekunden von 0 bis %1</translation>
    </message>
    <message>
        <source>the variable has no value yet: say the type, as in &quot;as int&quot;</source>
        <translation>die Variable hat noch keinen Wert: Nennen Sie den Typ, wie in „as int“</translation>
    </message>
</context>
<context>
    <name>host::workbench::script::ExpectCommands</name>
    <message>
        <source>a regular expression</source>
        <translation>ein regulärer Ausdruck</translation>
    </message>
    <message>
        <source>it shows &quot;%1&quot;</source>
        <translation>zu sehen ist „%1“</translation>
    </message>
    <message>
        <source>it is shown, with &quot;%1&quot;</source>
        <translation>es ist zu sehen, mit „%1“</translation>
    </message>
    <message>
        <source>it is not</source>
        <translation>es ist nicht so</translation>
    </message>
    <message>
        <source>it is %1</source>
        <translation>sie ist %1</translation>
    </message>
    <message>
        <source>there was none</source>
        <translation>es gab keinen</translation>
    </message>
    <message>
        <source>there were: %1</source>
        <translation>es gab: %1</translation>
    </message>
</context>
<context>
    <name>host::workbench::script::Gesture</name>
    <message>
        <source>the program does not react</source>
        <translation>das Programm reagiert nicht</translation>
    </message>
</context>
<context>
    <name>host::workbench::script::InputCommands</name>
    <message>
        <source>a key, as in Return or Ctrl+A</source>
        <translation>eine Taste, wie in Return oder Ctrl+A</translation>
    </message>
    <message>
        <source>a whole number from 1</source>
        <translation>eine ganze Zahl ab 1</translation>
    </message>
    <message>
        <source>a percentage from 0 to 100</source>
        <translation>ein Prozentwert von 0 bis 100</translation>
    </message>
    <message>
        <source>it is disabled</source>
        <translation>es ist deaktiviert</translation>
    </message>
    <message>
        <source>it is no table</source>
        <translation>es ist keine Tabelle</translation>
    </message>
    <message>
        <source>it has %1 rows and %2 columns</source>
        <translation>es hat %1 Zeilen und %2 Spalten</translation>
    </message>
    <message>
        <source>it is no list to choose from</source>
        <translation>es ist keine Auswahlliste</translation>
    </message>
    <message>
        <source>its list does not open</source>
        <translation>seine Liste öffnet sich nicht</translation>
    </message>
    <message>
        <source>it has: %1</source>
        <translation>es hat: %1</translation>
    </message>
    <message>
        <source>there is no tab &quot;%1&quot;; there are: %2</source>
        <translation>es gibt keinen Reiter „%1“; es gibt: %2</translation>
    </message>
    <message>
        <source>it lies behind another dock</source>
        <translation>es liegt hinter einem anderen Dock</translation>
    </message>
    <message>
        <source>it does not open</source>
        <translation>es öffnet sich nicht</translation>
    </message>
    <message>
        <source>it does not close</source>
        <translation>es schließt sich nicht</translation>
    </message>
    <message>
        <source>there is no dock &quot;%1&quot;; there are: %2</source>
        <translation>es gibt kein Dock „%1“; es gibt: %2</translation>
    </message>
</context>
<context>
    <name>host::workbench::script::MenuCommands</name>
    <message>
        <source>the menu does not react</source>
        <translation>das Menü reagiert nicht</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no menu</source>
        <translation>„%1“ ist kein Menü</translation>
    </message>
    <message>
        <source>the menu does not open</source>
        <translation>das Menü öffnet sich nicht</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is disabled</source>
        <translation>„%1“ ist deaktiviert</translation>
    </message>
    <message>
        <source>there is no entry &quot;%1&quot;; there are: %2</source>
        <translation>es gibt keinen Eintrag „%1“; es gibt: %2</translation>
    </message>
</context>
<context>
    <name>host::workbench::script::Player</name>
    <message>
        <source>a number of seconds above 0</source>
        <translation>eine Zahl von Sekunden über 0</translation>
    </message>
    <message>
        <source>it was interrupted</source>
        <translation>es wurde unterbrochen</translation>
    </message>
</context>
<context>
    <name>host::workbench::script::SceneCommands</name>
    <message>
        <source>a menu or a dialog is open; close it first</source>
        <translation>ein Menü oder ein Dialog ist offen; schließen Sie es zuerst</translation>
    </message>
    <message>
        <source>the window does not appear on the screen</source>
        <translation>das Fenster erscheint nicht auf dem Bildschirm</translation>
    </message>
    <message>
        <source>there is no such device; there are: %1</source>
        <translation>ein solches Gerät gibt es nicht; es gibt: %1</translation>
    </message>
    <message>
        <source>the window is not on the screen</source>
        <translation>das Fenster ist nicht auf dem Bildschirm</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
</context>
<context>
    <name>host::workbench::script::text::ScriptText</name>
    <message>
        <source>the quote that begins with &quot;%1&quot; is not closed</source>
        <translation>das Anführungszeichen vor „%1“ wird nicht geschlossen</translation>
    </message>
    <message>
        <source>expected: %1</source>
        <translation>erwartet: %1</translation>
    </message>
    <message>
        <source>, or: </source>
        <translation>, oder: </translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a command; expected one of: %2</source>
        <translation>„%1“ ist kein Befehl; erwartet wird einer von: %2</translation>
    </message>
    <message>
        <source>%1: expected %2, not &quot;%3&quot;</source>
        <translation>%1: erwartet wird %2, nicht „%3“</translation>
    </message>
</context>
<context>
    <name>host::workbench::traffic::TrafficDock</name>
    <message>
        <source>Traffic</source>
        <translation>Aufrufe</translation>
    </message>
    <message>
        <source>Filter of the calls</source>
        <translation>Filter der Aufrufe</translation>
    </message>
    <message>
        <source>Calls between host and plugin</source>
        <translation>Aufrufe zwischen Host und Plugin</translation>
    </message>
    <message>
        <source>&amp;Pause</source>
        <translation>&amp;Pause</translation>
    </message>
    <message>
        <source>Freeze the list; calls are still recorded.</source>
        <translation>Hält die Liste an; Aufrufe werden weiter aufgezeichnet.</translation>
    </message>
    <message>
        <source>&amp;Clear</source>
        <translation>Leere&amp;n</translation>
    </message>
    <message>
        <source>Discard all calls.</source>
        <translation>Verwirft alle Aufrufe.</translation>
    </message>
    <message>
        <source>Save the listed calls as comma-separated values.</source>
        <translation>Speichert die angezeigten Aufrufe als durch Komma getrennte Werte.</translation>
    </message>
    <message>
        <source>Save the calls</source>
        <translation>Aufrufe speichern</translation>
    </message>
    <message>
        <source>&amp;Save …</source>
        <translation>Spei&amp;chern …</translation>
    </message>
    <message>
        <source>Fil&amp;ter:</source>
        <translation>Fil&amp;ter:</translation>
    </message>
    <message>
        <source>Parts of a call; -word excludes</source>
        <translation>Teile eines Aufrufs; -Wort schließt aus</translation>
    </message>
    <message>
        <source>Words that must all be in a call, its widget, its arguments or its result. A word after a minus, such as -num_pos_max, must not.</source>
        <translation>Wörter, die alle in einem Aufruf, seinem Widget, seinen Argumenten oder seinem Ergebnis vorkommen müssen. Ein Wort hinter einem Minus, etwa -num_pos_max, darf es nicht.</translation>
    </message>
    <message>
        <source>Writes only</source>
        <translation>Nur Schreiben</translation>
    </message>
    <message>
        <source>List only the calls by which the plugin changes something.</source>
        <translation>Nur die Aufrufe aufführen, mit denen das Plugin etwas ändert.</translation>
    </message>
    <message>
        <source>Fold</source>
        <translation>Falten</translation>
    </message>
    <message>
        <source>Show equal calls in a row as one, with their number.</source>
        <translation>Gleiche Aufrufe nacheinander als einen zeigen, mit ihrer Anzahl.</translation>
    </message>
</context>
<context>
    <name>host::workbench::traffic::TrafficFilter</name>
    <message>
        <source>%1 × %2</source>
        <translation>%1 × %2</translation>
    </message>
</context>
<context>
    <name>host::workbench::traffic::TrafficModel</name>
    <message>
        <source>threw an exception</source>
        <translation>warf eine Ausnahme</translation>
    </message>
    <message>
        <source>in progress</source>
        <translation>läuft noch</translation>
    </message>
    <message>
        <source>%1 ms: too long</source>
        <translation>%1 ms: zu lang</translation>
    </message>
    <message>
        <source>%1 ms</source>
        <translation>%1 ms</translation>
    </message>
    <message>
        <source>This call blocked the window for %1 ms; it should take at most %2 ms.</source>
        <translation>Dieser Aufruf blockierte das Fenster %1 ms lang; er sollte höchstens %2 ms dauern.</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>Richtung</translation>
    </message>
    <message>
        <source>Call</source>
        <translation>Aufruf</translation>
    </message>
    <message>
        <source>Widget</source>
        <translation>Widget</translation>
    </message>
    <message>
        <source>Arguments</source>
        <translation>Argumente</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>host → plugin</source>
        <translation>Host → Plugin</translation>
    </message>
    <message>
        <source>plugin → host</source>
        <translation>Plugin → Host</translation>
    </message>
</context>
<context>
    <name>host::workbench::variables::VariableModel</name>
    <message>
        <source>input</source>
        <translation>Eingang</translation>
    </message>
    <message>
        <source>output</source>
        <translation>Ausgang</translation>
    </message>
    <message>
        <source>state</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>config</source>
        <translation>Einstellung</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Registered</source>
        <translation>Registriert</translation>
    </message>
    <message>
        <source>Written by</source>
        <translation>Geschrieben von</translation>
    </message>
    <message>
        <source>Written at</source>
        <translation>Geschrieben um</translation>
    </message>
    <message>
        <source>yes</source>
        <translation>ja</translation>
    </message>
    <message>
        <source>no</source>
        <translation>nein</translation>
    </message>
    <message>
        <source>this dock</source>
        <translation>diesem Fenster</translation>
    </message>
    <message>
        <source>the device</source>
        <translation>dem Gerät</translation>
    </message>
</context>
<context>
    <name>host::workbench::variables::VariablesDock</name>
    <message>
        <source>Variables</source>
        <translation>Variablen</translation>
    </message>
    <message>
        <source>Part of a name, a value, …</source>
        <translation>Teil eines Namens, eines Werts …</translation>
    </message>
    <message>
        <source>Filter of the variables</source>
        <translation>Filter der Variablen</translation>
    </message>
    <message>
        <source>Variables of the device</source>
        <translation>Variablen des Geräts</translation>
    </message>
    <message>
        <source>Type of the new value</source>
        <translation>Typ des neuen Werts</translation>
    </message>
    <message>
        <source>New value</source>
        <translation>Neuer Wert</translation>
    </message>
    <message>
        <source>Set the variable as the device would: the plugin is notified; nothing is stored or sent to the robot.</source>
        <translation>Setzt die Variable, wie das Gerät es täte: Das Plugin wird benachrichtigt; nichts wird gespeichert oder an den Roboter gesendet.</translation>
    </message>
    <message>
        <source>No variable selected</source>
        <translation>Keine Variable ausgewählt</translation>
    </message>
    <message>
        <source>F&amp;ilter:</source>
        <translation>F&amp;ilter:</translation>
    </message>
    <message>
        <source>T&amp;ype:</source>
        <translation>T&amp;yp:</translation>
    </message>
    <message>
        <source>Valu&amp;e:</source>
        <translation>W&amp;ert:</translation>
    </message>
    <message>
        <source>Set</source>
        <translation>Setzen</translation>
    </message>
</context>
<context>
    <name>host::workbench::window::DeviceView</name>
    <message>
        <source>&amp;Robot</source>
        <translation>&amp;Roboter</translation>
    </message>
    <message>
        <source>&amp;Names…</source>
        <translation>&amp;Namen…</translation>
    </message>
    <message>
        <source>&amp;Connect</source>
        <translation>&amp;Verbinden</translation>
    </message>
    <message>
        <source>&amp;Cancel connecting</source>
        <translation>Verbinden &amp;abbrechen</translation>
    </message>
    <message>
        <source>&amp;Disconnect</source>
        <translation>&amp;Trennen</translation>
    </message>
    <message>
        <source>&amp;Export scan…</source>
        <translation>Scan e&amp;xportieren…</translation>
    </message>
    <message>
        <source>There is no scan to export: none has come from the robot yet.</source>
        <translation>Es gibt keinen Scan zum Exportieren: Vom Roboter ist noch keiner gekommen.</translation>
    </message>
    <message>
        <source>Export the scan</source>
        <translation>Den Scan exportieren</translation>
    </message>
</context>
<context>
    <name>host::workbench::window::Notice</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Earlier messages that are left out here: %1</source>
        <translation>Frühere, hier ausgelassene Meldungen: %1</translation>
    </message>
</context>
<context>
    <name>host::workbench::window::PluginView</name>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Reset layout</source>
        <translation>Anordnung &amp;zurücksetzen</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <source>The plugin has no widgets</source>
        <translation>Das Plugin hat keine Widgets</translation>
    </message>
    <message>
        <source>Asked for the widgets &quot;toolbar&quot; and &quot;dialog&quot; of the device &quot;%1 %2&quot;, it returned none.</source>
        <translation>Nach den Widgets „toolbar“ und „dialog“ des Geräts „%1 %2“ gefragt, gab es keines zurück.</translation>
    </message>
    <message>
        <source>The words are the vendor and the name in its PluginInfo: its loadDeviceWidget() must know the device by both, with one blank between them.</source>
        <translation>Die Wörter sind Hersteller und Name in seiner PluginInfo: Seine Funktion loadDeviceWidget() muss das Gerät an beiden erkennen, mit einem Leerzeichen dazwischen.</translation>
    </message>
    <message>
        <source>its type is unknown</source>
        <translation>ihr Typ ist unbekannt</translation>
    </message>
    <message>
        <source>A widget of the plugin failed</source>
        <translation>Ein Widget des Plugins ist gescheitert</translation>
    </message>
    <message>
        <source>The constructor of the widget &quot;%1&quot; threw an exception: %2.</source>
        <translation>Der Konstruktor des Widgets „%1“ warf eine Ausnahme: %2.</translation>
    </message>
    <message>
        <source>The rest of the window works without it. Ask the plugin&apos;s author for a fixed version.</source>
        <translation>Der Rest des Fensters funktioniert ohne es. Bitten Sie den Autor des Plugins um eine korrigierte Version.</translation>
    </message>
</context>
<context>
    <name>host::workbench::window::StartPage</name>
    <message>
        <source>This plugin has no dialog: everything it offers is in the tool bar.</source>
        <translation>Dieses Plugin hat keinen Dialog: Alles, was es bietet, steht in der Werkzeugleiste.</translation>
    </message>
    <message>
        <source>&lt;p&gt;Getting started:&lt;/p&gt;&lt;ol&gt;&lt;li&gt;Enter the robot&apos;s address in the field in the tool bar.&lt;/li&gt;&lt;li&gt;Press the connect button beside it.&lt;/li&gt;&lt;/ol&gt;</source>
        <translation>&lt;p&gt;Erste Schritte:&lt;/p&gt;&lt;ol&gt;&lt;li&gt;Geben Sie die Adresse des Roboters in das Feld in der Werkzeugleiste ein.&lt;/li&gt;&lt;li&gt;Drücken Sie den Verbindungsknopf daneben.&lt;/li&gt;&lt;/ol&gt;</translation>
    </message>
    <message>
        <source>&lt;p&gt;No robot? A simulated one runs at &lt;b&gt;%1&lt;/b&gt;.&lt;/p&gt;</source>
        <translation>&lt;p&gt;Kein Roboter? Ein simulierter läuft unter &lt;b&gt;%1&lt;/b&gt;.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;p&gt;To cancel, press the button again.&lt;/p&gt;</source>
        <translation>&lt;p&gt;Zum Abbrechen drücken Sie den Knopf noch einmal.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;p&gt;To disconnect, press the button again.&lt;/p&gt;</source>
        <translation>&lt;p&gt;Zum Trennen drücken Sie den Knopf noch einmal.&lt;/p&gt;</translation>
    </message>
</context>
<context>
    <name>host::workbench::window::StatusLine</name>
    <message>
        <source>Simulated robot: %1</source>
        <translation>Simulierter Roboter: %1</translation>
    </message>
    <message>
        <source>Last error, %1: %2</source>
        <translation>Letzter Fehler, %1: %2</translation>
    </message>
    <message>
        <source>Connected for %1:%2:%3</source>
        <translation>Verbunden seit %1:%2:%3</translation>
    </message>
    <message>
        <source>No data yet</source>
        <translation>Noch keine Daten</translation>
    </message>
    <message>
        <source>Data is up to date</source>
        <translation>Daten sind aktuell</translation>
    </message>
    <message>
        <source>Newest data: %1 s old</source>
        <translation>Neueste Daten: %1 s alt</translation>
    </message>
    <message>
        <source>Do not wait</source>
        <translation>Nicht warten</translation>
    </message>
    <message>
        <source>Make no further attempts to connect.</source>
        <translation>Keine weiteren Versuche, sich zu verbinden.</translation>
    </message>
    <message>
        <source>Connects again in %1 s</source>
        <translation>Verbindet sich wieder in %1 s</translation>
    </message>
    <message>
        <source>Connects again</source>
        <translation>Verbindet sich wieder</translation>
    </message>
    <message>
        <source>Age of the newest data that the robot sends continuously, or how late it comes: how much longer than the quickest data it was on its way.</source>
        <translation>Alter der neuesten Daten, die der Roboter laufend sendet, oder ihre Verspätung: wie viel länger sie unterwegs waren als die schnellsten.</translation>
    </message>
    <message>
        <source>Data is %1 s late</source>
        <translation>Daten kommen %1 s zu spät</translation>
    </message>
    <message>
        <source>Put this error away.</source>
        <translation>Diesen Fehler ausblenden.</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Ausblenden</translation>
    </message>
</context>
<context>
    <name>host::workbench::window::TrustBar</name>
    <message>
        <source>Trust and connect</source>
        <translation>Vertrauen und verbinden</translation>
    </message>
    <message>
        <source>Do not trust</source>
        <translation>Nicht vertrauen</translation>
    </message>
    <message>
        <source>Trust %1? %2</source>
        <translation>%1 vertrauen? %2</translation>
    </message>
</context>
<context>
    <name>host::workbench::window::Window</name>
    <message>
        <source>%1 - device workbench</source>
        <translation>%1 – Geräte-Werkbank</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Context help</source>
        <translation>&amp;Kontexthilfe</translation>
    </message>
    <message>
        <source>C&amp;ontents</source>
        <translation>&amp;Inhalt</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>Ü&amp;ber</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>Device workbench</source>
        <translation>Geräte-Werkbank</translation>
    </message>
    <message>
        <source>%1 %2, with Qt %3.</source>
        <translation>%1 %2, mit Qt %3.</translation>
    </message>
    <message>
        <source>Plugin: %1 by %2.</source>
        <translation>Plugin: %1 von %2.</translation>
    </message>
    <message>
        <source>The plugin&apos;s file has changed. File &gt; Restart loads it as it is now.</source>
        <translation>Die Datei des Plugins hat sich geändert. Datei &gt; Neu starten lädt sie, wie sie jetzt ist.</translation>
    </message>
    <message>
        <source>&amp;Restart</source>
        <translation>&amp;Neu starten</translation>
    </message>
    <message>
        <source>Save &amp;bug report…</source>
        <translation>Fehler&amp;bericht speichern…</translation>
    </message>
</context>
<context>
    <name>olm::qt::log::Feed</name>
    <message>
        <source>… %1 more characters</source>
        <translation>… %1 weitere Zeichen</translation>
    </message>
    <message>
        <source>… 1 line left out</source>
        <translation>… 1 Zeile ausgelassen</translation>
    </message>
    <message>
        <source>… %1 lines left out</source>
        <translation>… %1 Zeilen ausgelassen</translation>
    </message>
</context>
<context>
    <name>olm::qt::log::View</name>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>Save as…</source>
        <translation>Speichern unter …</translation>
    </message>
    <message>
        <source>Save the log</source>
        <translation>Protokoll speichern</translation>
    </message>
    <message>
        <source>Text files (*.txt);;All files (*)</source>
        <translation>Textdateien (*.txt);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>The log could not be saved to %1: %2. Choose another folder, or free disk space.</source>
        <translation>Das Protokoll konnte nicht in %1 gespeichert werden: %2. Wählen Sie einen anderen Ordner, oder schaffen Sie Platz auf dem Datenträger.</translation>
    </message>
</context>
<context>
    <name>robot::CommandLine</name>
    <message>
        <source>A simulated robot that speaks rosbridge v2.</source>
        <translation>Ein simulierter Roboter, der rosbridge v2 spricht.</translation>
    </message>
    <message>
        <source>--address: %1</source>
        <translation>--address: %1</translation>
    </message>
    <message>
        <source>--port: &quot;%1&quot; is not a number from 0 to 65535</source>
        <translation>--port: „%1“ ist keine Zahl von 0 bis 65535</translation>
    </message>
    <message>
        <source>--seed: &quot;%1&quot; is not a number from 0 to 4294967295</source>
        <translation>--seed: „%1“ ist keine Zahl von 0 bis 4294967295</translation>
    </message>
    <message>
        <source>--allow-origin: &quot;%1&quot; is not an origin; write it as http://localhost:8000, without a path</source>
        <translation>--allow-origin: „%1“ ist kein Ursprung; schreiben Sie ihn wie http://localhost:8000, ohne Pfad</translation>
    </message>
    <message>
        <source>Listen on ADDRESS: host, host:port or [IPv6]:port (default: %1, which only programs on this computer can reach).</source>
        <translation>Lauscht an ADDRESS: Host, Host:Port oder [IPv6]:Port (Vorgabe: %1, erreichbar nur für Programme auf diesem Rechner).</translation>
    </message>
    <message>
        <source>Listen on port NUMBER, whatever the address says; 0 takes any free port.</source>
        <translation>Lauscht am Port NUMBER, was auch immer die Adresse sagt; 0 nimmt irgendeinen freien.</translation>
    </message>
    <message>
        <source>Seed of the simulated world, 0 to 4294967295 (default: random).</source>
        <translation>Startwert der simulierten Welt, 0 bis 4294967295 (Vorgabe: zufällig).</translation>
    </message>
    <message>
        <source>Let browser pages of ORIGIN connect, for example http://localhost:8000. Can be repeated.</source>
        <translation>Lässt Browserseiten von ORIGIN eine Verbindung aufbauen, zum Beispiel http://localhost:8000. Kann mehrfach angegeben werden.</translation>
    </message>
    <message>
        <source>unexpected argument &quot;%1&quot;</source>
        <translation>unerwartetes Argument „%1“</translation>
    </message>
    <message>
        <source>--address: the robot serves neither wss:// nor a path; write host:port</source>
        <translation>--address: Der Roboter bedient weder wss:// noch einen Pfad; schreiben Sie Host:Port</translation>
    </message>
    <message>
        <source>--%1: nothing is simulated when a bag is played; leave out this or --play</source>
        <translation>--%1: Nichts wird simuliert, wenn ein Bag abgespielt wird; lassen Sie dies oder --play weg</translation>
    </message>
</context>
<context>
    <name>robot::InfoOptions</name>
    <message>
        <source>Show this help and exit.</source>
        <translation>Zeigt diese Hilfe und beendet das Programm.</translation>
    </message>
    <message>
        <source>Show the version and exit.</source>
        <translation>Zeigt die Version und beendet das Programm.</translation>
    </message>
    <message>
        <source>Try &apos;%1 --help&apos;.</source>
        <translation>Versuchen Sie „%1 --help“.</translation>
    </message>
</context>
<context>
    <name>robot::LaserLogOptions</name>
    <message>
        <source>--laser-log: give the name of a file</source>
        <translation>--laser-log: Geben Sie den Namen einer Datei an</translation>
    </message>
    <message>
        <source>--rate: there is nothing to replay; give a --laser-log too</source>
        <translation>--rate: Es gibt nichts abzuspielen; geben Sie auch --laser-log an</translation>
    </message>
    <message>
        <source>--rate: &quot;%1&quot; is not a number from %2 to %3</source>
        <translation>--rate: „%1“ ist keine Zahl von %2 bis %3</translation>
    </message>
    <message>
        <source>Replay the laser scans recorded in FILE repeatedly, in place of the simulated laser.</source>
        <translation>Spielt die in FILE aufgezeichneten Laserscans immer wieder ab, anstelle des simulierten Lasers.</translation>
    </message>
    <message>
        <source>Replay the recording FACTOR times as fast as it was recorded, 0.01 to 100 (default: 1).</source>
        <translation>Spielt die Aufzeichnung FACTOR-mal so schnell ab, wie sie aufgezeichnet wurde, 0.01 bis 100 (Vorgabe: 1).</translation>
    </message>
</context>
<context>
    <name>robot::PlayOptions</name>
    <message>
        <source>Serve the topics that the ROS bag FILE holds, in place of the simulated robot.</source>
        <translation>Bietet die Topics an, die das ROS-Bag FILE enthält, anstelle des simulierten Roboters.</translation>
    </message>
    <message>
        <source>Play the bag again and again.</source>
        <translation>Spielt das Bag immer wieder ab.</translation>
    </message>
    <message>
        <source>Play the bag from SECONDS on (default: 0).</source>
        <translation>Spielt das Bag ab Sekunde SECONDS ab (Vorgabe: 0).</translation>
    </message>
    <message>
        <source>--%1: there is nothing to play; give --play too</source>
        <translation>--%1: Es gibt nichts abzuspielen; geben Sie auch --play an</translation>
    </message>
    <message>
        <source>--play: give the name of a file</source>
        <translation>--play: Geben Sie den Namen einer Datei an</translation>
    </message>
    <message>
        <source>--start: &quot;%1&quot; is not a number of seconds from 0 on</source>
        <translation>--start: „%1“ ist keine Zahl von Sekunden ab 0</translation>
    </message>
</context>
<context>
    <name>robot::PlayedRobot</name>
    <message>
        <source>%1 is left out: the robot that plays has that topic itself</source>
        <translation>%1 wird ausgelassen: Der abspielende Roboter hat dieses Topic selbst</translation>
    </message>
    <message>
        <source>messages of %1 cannot be played: %2</source>
        <translation>Nachrichten von %1 können nicht abgespielt werden: %2</translation>
    </message>
    <message>
        <source>the recording is over</source>
        <translation>die Aufzeichnung ist zu Ende</translation>
    </message>
</context>
<context>
    <name>robot::network::Control</name>
    <message>
        <source>this client is already in control</source>
        <translation>dieser Client hat die Steuerung schon</translation>
    </message>
    <message>
        <source>this client is in control</source>
        <translation>dieser Client hat die Steuerung</translation>
    </message>
    <message>
        <source>this client is not in control</source>
        <translation>dieser Client hat die Steuerung nicht</translation>
    </message>
    <message>
        <source>control is released</source>
        <translation>die Steuerung ist abgegeben</translation>
    </message>
    <message>
        <source>no client is in control; call /control/acquire first</source>
        <translation>kein Client hat die Steuerung; rufen Sie zuerst /control/acquire auf</translation>
    </message>
    <message>
        <source>%1 is in control; it must call /control/release first</source>
        <translation>%1 hat die Steuerung und muss zuerst /control/release aufrufen</translation>
    </message>
    <message>
        <source>%1 is in control</source>
        <translation>%1 hat die Steuerung</translation>
    </message>
</context>
<context>
    <name>robot::network::LogWriter</name>
    <message>
        <source>%1 more lines were left out: clients caused too many</source>
        <translation>%1 weitere Zeilen wurden weggelassen: Clients haben zu viele verursacht</translation>
    </message>
</context>
<context>
    <name>robot::network::Network</name>
    <message>
        <source>cannot listen on %1: no such host; give an address of this computer</source>
        <translation>auf %1 kann nicht gelauscht werden: kein solcher Host; geben Sie eine Adresse dieses Rechners an</translation>
    </message>
    <message>
        <source>cannot listen on %1: %2; choose another address or port, or end the program that uses it</source>
        <translation>auf %1 kann nicht gelauscht werden: %2; wählen Sie eine andere Adresse oder einen anderen Port, oder beenden Sie das Programm, das ihn benutzt</translation>
    </message>
    <message>
        <source>%1 joined</source>
        <translation>%1 ist gekommen</translation>
    </message>
    <message>
        <source>%1 left: %2</source>
        <translation>%1 ist gegangen: %2</translation>
    </message>
    <message>
        <source>a page of %1 was refused</source>
        <translation>eine Seite von %1 wurde abgewiesen</translation>
    </message>
    <message>
        <source>%1 took control</source>
        <translation>%1 hat die Steuerung übernommen</translation>
    </message>
    <message>
        <source>%1 released control</source>
        <translation>%1 hat die Steuerung abgegeben</translation>
    </message>
    <message>
        <source>%1 was refused control: %2</source>
        <translation>%1 wurde die Steuerung verweigert: %2</translation>
    </message>
    <message>
        <source>new clients have to wait: there are no file descriptors or memory left</source>
        <translation>neue Clients müssen warten: Dateideskriptoren oder Speicher sind aufgebraucht</translation>
    </message>
    <message>
        <source>%1 called %2: %3</source>
        <translation>%1 hat %2 aufgerufen: %3</translation>
    </message>
</context>
<context>
    <name>robot::network::RosApi</name>
    <message>
        <source>name must be text</source>
        <translation>name muss Text sein</translation>
    </message>
    <message>
        <source>this robot has no type &quot;%1&quot;</source>
        <translation>dieser Roboter hat keinen Typ „%1“</translation>
    </message>
    <message>
        <source>%1 must be text</source>
        <translation>%1 muss Text sein</translation>
    </message>
</context>
<context>
    <name>robot::network::Stop</name>
    <message>
        <source>the robot was stopped already</source>
        <translation>der Roboter war schon gestoppt</translation>
    </message>
    <message>
        <source>the robot is stopped</source>
        <translation>der Roboter ist gestoppt</translation>
    </message>
    <message>
        <source>the robot was not stopped</source>
        <translation>der Roboter war nicht gestoppt</translation>
    </message>
    <message>
        <source>the stop is released; nothing moves until it is commanded</source>
        <translation>der Stopp ist aufgehoben; ohne Befehl bewegt sich nichts</translation>
    </message>
    <message>
        <source>the robot is stopped; the client in control must call /stop/release first</source>
        <translation>der Roboter ist gestoppt; erst muss der Client mit der Steuerung /stop/release aufrufen</translation>
    </message>
    <message>
        <source>%1; the robot is stopped: nothing moves</source>
        <translation>%1; der Roboter ist gestoppt: nichts bewegt sich</translation>
    </message>
</context>
<context>
    <name>robot::nodes::ArmMessages</name>
    <message>
        <source>points[0].%1: %2</source>
        <translation>points[0].%1: %2</translation>
    </message>
    <message>
        <source>points[0].%1 must have a number for each of the %2 joint_names, not %3</source>
        <translation>points[0].%1 muss für jeden der %2 joint_names eine Zahl enthalten, nicht %3</translation>
    </message>
    <message>
        <source>joint_names must be a list of text</source>
        <translation>joint_names muss eine Liste von Texten sein</translation>
    </message>
    <message>
        <source>points must be a list of one point; send the next one when it is due</source>
        <translation>points muss eine Liste mit einem Punkt sein; senden Sie den nächsten, wenn er an der Reihe ist</translation>
    </message>
</context>
<context>
    <name>robot::nodes::ArmNode</name>
    <message>
        <source>data must be true or false</source>
        <translation>data muss true oder false sein</translation>
    </message>
    <message>
        <source>control was released: the arm stops</source>
        <translation>die Steuerung wurde abgegeben: Der Arm hält an</translation>
    </message>
    <message>
        <source>the robot is stopped: the arm holds where it is</source>
        <translation>der Roboter ist gestoppt: der Arm hält an, wo er ist</translation>
    </message>
</context>
<context>
    <name>robot::nodes::CameraNode</name>
    <message>
        <source>config must be an object with the list strs</source>
        <translation>config muss ein Objekt mit der Liste strs sein</translation>
    </message>
    <message>
        <source>config has no field &quot;%1&quot;; it has %2</source>
        <translation>config hat kein Feld „%1“; es hat %2</translation>
    </message>
    <message>
        <source>config.%1 must be a list</source>
        <translation>config.%1 muss eine Liste sein</translation>
    </message>
    <message>
        <source>the camera has no parameter &quot;%1&quot; in config.%2; it has &quot;%3&quot; in config.strs</source>
        <translation>die Kamera hat keinen Parameter „%1“ in config.%2; sie hat „%3“ in config.strs</translation>
    </message>
    <message>
        <source>the value of &quot;%1&quot; must be text, for example &quot;%2&quot;</source>
        <translation>der Wert von „%1“ muss Text sein, zum Beispiel „%2“</translation>
    </message>
    <message>
        <source>the camera has no pictures: Qt&apos;s plugin for JPEG is missing</source>
        <translation>die Kamera hat keine Bilder: Qts Plugin für JPEG fehlt</translation>
    </message>
</context>
<context>
    <name>robot::nodes::DriveNode</name>
    <message>
        <source>data must be true, to stand still, or false, to move again</source>
        <translation>data muss true sein, um stillzustehen, oder false, um wieder zu fahren</translation>
    </message>
    <message>
        <source>the drive is disabled, the robot stands still</source>
        <translation>der Antrieb ist ausgeschaltet, der Roboter steht still</translation>
    </message>
    <message>
        <source>the drive is enabled</source>
        <translation>der Antrieb ist eingeschaltet</translation>
    </message>
</context>
<context>
    <name>robot::nodes::LaserNode</name>
    <message>
        <source>%1: %2 further lines cannot be read</source>
        <translation>%1: %2 weitere Zeilen können nicht gelesen werden</translation>
    </message>
    <message>
        <source>replaying %1: %2 scans at %3 times the recorded speed</source>
        <translation>%1 wird abgespielt: %2 Scans mit dem %3-Fachen der aufgenommenen Geschwindigkeit</translation>
    </message>
</context>
<context>
    <name>robot::nodes::RosMessages</name>
    <message>
        <source>geometry_msgs/Twist has no field &quot;%1&quot;; it has %2 there</source>
        <translation>geometry_msgs/Twist hat kein Feld „%1“; dort hat es %2</translation>
    </message>
    <message>
        <source>%1 must be an object with the numbers x, y and z</source>
        <translation>%1 muss ein Objekt mit den Zahlen x, y und z sein</translation>
    </message>
    <message>
        <source>%1.%2 must be a number</source>
        <translation>%1.%2 muss eine Zahl sein</translation>
    </message>
</context>
<context>
    <name>robot::recording::BagPlayer</name>
    <message>
        <source>there is no topic in it that can be played</source>
        <translation>sie enthält kein Topic, das abgespielt werden kann</translation>
    </message>
    <message>
        <source>it is only %1 s long</source>
        <translation>sie ist nur %1 s lang</translation>
    </message>
    <message>
        <source>%1 is left out: %2</source>
        <translation>%1 wird ausgelassen: %2</translation>
    </message>
</context>
<context>
    <name>robot::recording::CarmenLog</name>
    <message>
        <source>start_angle</source>
        <translation>start_angle</translation>
    </message>
    <message>
        <source>angular_resolution</source>
        <translation>angular_resolution</translation>
    </message>
    <message>
        <source>maximum_range</source>
        <translation>maximum_range</translation>
    </message>
    <message>
        <source>num_readings</source>
        <translation>num_readings</translation>
    </message>
    <message>
        <source>num_remissions</source>
        <translation>num_remissions</translation>
    </message>
    <message>
        <source>%1 words follow the readings, not the poses, time stamps and host name</source>
        <translation>auf die Messwerte folgen %1 Wörter, nicht Posen, Zeitstempel und Hostname</translation>
    </message>
    <message>
        <source>it has no readings</source>
        <translation>sie hat keine Messwerte</translation>
    </message>
    <message>
        <source>ipc_timestamp</source>
        <translation>ipc_timestamp</translation>
    </message>
</context>
<context>
    <name>robot::recording::LineReader</name>
    <message>
        <source>the line ends too early, after %1 words</source>
        <translation>die Zeile endet nach %1 Wörtern zu früh</translation>
    </message>
    <message>
        <source>%1, word %2, is %3 and not a number from %4 to %5</source>
        <translation>%1, Wort %2, ist %3 und keine Zahl von %4 bis %5</translation>
    </message>
    <message>
        <source>%1 is %2, not a whole number</source>
        <translation>%1 ist %2, keine ganze Zahl</translation>
    </message>
    <message>
        <source>a range</source>
        <translation>eine Entfernung</translation>
    </message>
</context>
<context>
    <name>robot::recording::Recording</name>
    <message>
        <source>The recording %1 cannot be read: %2.</source>
        <translation>Die Aufzeichnung %1 kann nicht gelesen werden: %2.</translation>
    </message>
    <message>
        <source>The recording %1 is larger than %2 bytes. Split it.</source>
        <translation>Die Aufzeichnung %1 ist größer als %2 Bytes. Teilen Sie sie auf.</translation>
    </message>
    <message>
        <source>the line is longer than %1 bytes</source>
        <translation>die Zeile ist länger als %1 Bytes</translation>
    </message>
    <message>
        <source>the line begins with %1, which is neither a CARMEN message nor a time in microseconds</source>
        <translation>die Zeile beginnt mit %1, was weder eine CARMEN-Nachricht noch eine Zeit in Mikrosekunden ist</translation>
    </message>
    <message>
        <source>The scans of the recording %1 need more than %2 bytes of memory. Split it.</source>
        <translation>Die Scans der Aufzeichnung %1 brauchen mehr als %2 Bytes Speicher. Teilen Sie sie auf.</translation>
    </message>
    <message>
        <source>It must be a CARMEN log with FLASER or ROBOTLASER1 lines, or a table with 683 ranges per line.</source>
        <translation>Sie muss ein CARMEN-Log mit FLASER- oder ROBOTLASER1-Zeilen sein oder eine Tabelle mit 683 Entfernungen je Zeile.</translation>
    </message>
    <message>
        <source>Its first invalid line: %1.</source>
        <translation>Ihre erste ungültige Zeile: %1.</translation>
    </message>
    <message>
        <source>The recording %1 contains no laser scan. %2</source>
        <translation>Die Aufzeichnung %1 enthält keinen Laserscan. %2</translation>
    </message>
</context>
<context>
    <name>robot::recording::Replay</name>
    <message>
        <source>There are no scans to replay.</source>
        <translation>Es gibt keine Scans zum Abspielen.</translation>
    </message>
    <message>
        <source>The replay rate %1 is not from %2 to %3.</source>
        <translation>Die Abspielrate %1 liegt nicht zwischen %2 und %3.</translation>
    </message>
</context>
<context>
    <name>robot::recording::ScanTable</name>
    <message>
        <source>the time</source>
        <translation>die Zeit</translation>
    </message>
</context>
<context>
    <name>robot::simulation::Arm</name>
    <message>
        <source>the command names no axis; name one of %1 to %2 at least</source>
        <translation>der Befehl nennt keine Achse; nennen Sie mindestens eine von %1 bis %2</translation>
    </message>
    <message>
        <source>the torque is off: the arm does not move; switch it on first</source>
        <translation>das Drehmoment ist aus: Der Arm bewegt sich nicht; schalten Sie es zuerst ein</translation>
    </message>
    <message>
        <source>moving: %1</source>
        <translation>in Bewegung: %1</translation>
    </message>
    <message>
        <source>not moving: %1</source>
        <translation>nicht in Bewegung: %1</translation>
    </message>
    <message>
        <source>torque off: the arm does not move</source>
        <translation>Drehmoment aus: Der Arm bewegt sich nicht</translation>
    </message>
    <message>
        <source>torque on</source>
        <translation>Drehmoment ein</translation>
    </message>
    <message>
        <source>line %1 on; the torque is off: the arm does not move</source>
        <translation>Leitung %1 ein; das Drehmoment ist aus: Der Arm bewegt sich nicht</translation>
    </message>
    <message>
        <source>line %1 on</source>
        <translation>Leitung %1 ein</translation>
    </message>
    <message>
        <source>the arm has no axis &quot;%1&quot;; it has %2 to %3</source>
        <translation>der Arm hat keine Achse „%1“; er hat %2 bis %3</translation>
    </message>
    <message>
        <source>line %1 is off</source>
        <translation>Leitung %1 ist aus</translation>
    </message>
    <message>
        <source>it is already there</source>
        <translation>sie ist schon dort</translation>
    </message>
    <message>
        <source>its speed is 0</source>
        <translation>ihre Geschwindigkeit ist 0</translation>
    </message>
    <message>
        <source>line %1 off: axes %2 to %3 do not move</source>
        <translation>Leitung %1 aus: Die Achsen %2 bis %3 bewegen sich nicht</translation>
    </message>
    <message>
        <source>axis %1</source>
        <translation>Achse %1</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is named twice; name each axis once</source>
        <translation>„%1“ ist zweimal genannt; nennen Sie jede Achse nur einmal</translation>
    </message>
    <message>
        <source>the target %1° of %2 is refused; give one from 0° to %3°</source>
        <translation>das Ziel %1° für %2 wird abgewiesen; geben Sie eines von 0° bis %3° an</translation>
    </message>
    <message>
        <source>the speed %1°/s of %2 is refused; give one from 0°/s to %3°/s</source>
        <translation>die Geschwindigkeit %1°/s für %2 wird abgewiesen; geben Sie eine von 0°/s bis %3°/s an</translation>
    </message>
</context>
<context>
    <name>robot::simulation::Camera</name>
    <message>
        <source>The camera has no resolution &quot;%1&quot;; it has %2.</source>
        <translation>Die Kamera hat keine Auflösung „%1“; sie hat %2.</translation>
    </message>
</context>
<context>
    <name>robot::simulation::DriveBase</name>
    <message>
        <source>The velocity command linear.x = %1, angular.z = %2 is refused: both must be finite numbers.</source>
        <translation>Der Geschwindigkeitsbefehl linear.x = %1, angular.z = %2 wird abgewiesen: Beide müssen endliche Zahlen sein.</translation>
    </message>
</context>
<context>
    <name>rosbridge::bag::BagReader</name>
    <message>
        <source>%1 was cut off: only what is whole is read</source>
        <translation>%1 wurde abgeschnitten: Nur was vollständig ist, wird gelesen</translation>
    </message>
    <message>
        <source>there is no message in it</source>
        <translation>sie enthält keine Nachricht</translation>
    </message>
    <message>
        <source>the bag is damaged: %1</source>
        <translation>das Bag ist beschädigt: %1</translation>
    </message>
    <message>
        <source>%1 has messages of several types; those of %2 are left out</source>
        <translation>%1 hat Nachrichten mehrerer Typen; die von %2 werden ausgelassen</translation>
    </message>
</context>
<context>
    <name>rosbridge::bag::BagRestorer</name>
    <message>
        <source>it does not begin as a bag of format 2.0 does</source>
        <translation>sie beginnt nicht wie ein Bag im Format 2.0</translation>
    </message>
    <message>
        <source>it has no index and is compressed; make one with &quot;rosbag reindex&quot;</source>
        <translation>sie hat keinen Index und ist komprimiert; erzeugen Sie einen mit „rosbag reindex“</translation>
    </message>
    <message>
        <source>there is no whole message in it</source>
        <translation>sie enthält keine vollständige Nachricht</translation>
    </message>
    <message>
        <source>it was cut off, and there is no room for a copy with an index: %1</source>
        <translation>sie wurde abgeschnitten, und für eine Kopie mit Index ist kein Platz: %1</translation>
    </message>
</context>
<context>
    <name>rosbridge::bag::BagWriter</name>
    <message>
        <source>%1 is there: it was cut off while it was recorded. Rename it to keep it, or remove it.</source>
        <translation>%1 gibt es schon: Die Aufzeichnung wurde abgebrochen. Benennen Sie die Datei um, um sie zu behalten, oder entfernen Sie sie.</translation>
    </message>
    <message>
        <source>%1 keeps its name, for it could not be finished: %2. What was recorded is in it.</source>
        <translation>%1 behält seinen Namen, weil es nicht abgeschlossen werden konnte: %2. Was aufgezeichnet wurde, ist darin.</translation>
    </message>
    <message>
        <source>%1 has reached the largest size of a recording, %2</source>
        <translation>%1 hat die größte Größe einer Aufzeichnung erreicht, %2</translation>
    </message>
</context>
<context>
    <name>rosbridge::bag::MessageList</name>
    <message>
        <source>a message has %1 bytes; at most %2 are read</source>
        <translation>eine Nachricht hat %1 Bytes; höchstens %2 werden gelesen</translation>
    </message>
    <message>
        <source>the bag is damaged: %1</source>
        <translation>das Bag ist beschädigt: %1</translation>
    </message>
</context>
<context>
    <name>rosbridge::client::Client</name>
    <message>
        <source>The link to %1 was closed on request.</source>
        <translation>Die Verbindung mit %1 wurde auf Wunsch geschlossen.</translation>
    </message>
    <message>
        <source>The service %1 was not called: there is no link.</source>
        <translation>Der Dienst %1 wurde nicht aufgerufen: Es gibt keine Verbindung.</translation>
    </message>
    <message>
        <source>The service %1 did not answer within %2 s.</source>
        <translation>Der Dienst %1 hat nicht innerhalb von %2 s geantwortet.</translation>
    </message>
    <message>
        <source>The link to %1 is lost: the robot has not answered for %2 s. Check the network and whether the robot is switched on.</source>
        <translation>Die Verbindung mit %1 ist verloren: Der Roboter antwortet seit %2 s nicht. Prüfen Sie das Netz und ob der Roboter eingeschaltet ist.</translation>
    </message>
    <message>
        <source>%1 accepts a connection but has not answered for %2 s. Check whether the port is the robot&apos;s, or restart the robot&apos;s program.</source>
        <translation>%1 nimmt eine Verbindung an, antwortet aber seit %2 s nicht. Prüfen Sie, ob der Port der des Roboters ist, oder starten Sie das Programm des Roboters neu.</translation>
    </message>
    <message>
        <source>%1 has not answered for %2 s. Check the address, the network and whether the robot is switched on.</source>
        <translation>%1 antwortet seit %2 s nicht. Prüfen Sie die Adresse, das Netz und ob der Roboter eingeschaltet ist.</translation>
    </message>
    <message>
        <source>The link to %1 was closed, as one end did not understand the other: %2. Check whether both have the same version.</source>
        <translation>Die Verbindung mit %1 wurde geschlossen, da ein Ende das andere nicht verstand: %2. Prüfen Sie, ob beide dieselbe Version haben.</translation>
    </message>
    <message>
        <source>The link to %1 is lost: the robot closed it or cannot be reached any more. Check the network and whether the robot&apos;s program is running.</source>
        <translation>Die Verbindung mit %1 ist verloren: Der Roboter hat sie geschlossen oder ist nicht mehr zu erreichen. Prüfen Sie das Netz und ob das Programm des Roboters läuft.</translation>
    </message>
    <message>
        <source>The service %1 did not answer: %2</source>
        <translation>Der Dienst %1 hat nicht geantwortet: %2</translation>
    </message>
    <message>
        <source>%1 closed the link: %2.</source>
        <translation>%1 hat die Verbindung geschlossen: %2.</translation>
    </message>
    <message>
        <source>it closed the connection at once</source>
        <translation>die Verbindung wurde sofort wieder geschlossen</translation>
    </message>
    <message>
        <source>A message has %1 MB and was left out; at most %2 MB are accepted.</source>
        <translation>Eine Nachricht hat %1 MB und wurde ausgelassen; höchstens %2 MB werden angenommen.</translation>
    </message>
    <message>
        <source>A message of %1 has %2 MB and was left out; at most %3 MB are accepted.</source>
        <translation>Eine Nachricht von %1 hat %2 MB und wurde ausgelassen; höchstens %3 MB werden angenommen.</translation>
    </message>
    <message>
        <source>%1 closed the link without an answer. Its rosbridge may want authentication (the operation &quot;auth&quot;). This program cannot log in: switch the authentication off on the robot.</source>
        <translation>%1 hat die Verbindung ohne Antwort geschlossen. Sein rosbridge verlangt womöglich eine Anmeldung (die Operation „auth“). Dieses Programm kann sich nicht anmelden: Schalten Sie die Anmeldung am Roboter ab.</translation>
    </message>
</context>
<context>
    <name>rosbridge::client::FailureText</name>
    <message>
        <source>%1 refuses the connection. Check the port and whether the robot&apos;s program is running.</source>
        <translation>%1 weist die Verbindung ab. Prüfen Sie den Port und ob das Programm des Roboters läuft.</translation>
    </message>
    <message>
        <source>There is no host &quot;%1&quot;. Check the address and the network.</source>
        <translation>Es gibt keinen Host „%1“. Prüfen Sie die Adresse und das Netz.</translation>
    </message>
    <message>
        <source>%1 cannot be reached: %2. Check the address and the network.</source>
        <translation>%1 ist nicht zu erreichen: %2. Prüfen Sie die Adresse und das Netz.</translation>
    </message>
    <message>
        <source>%1 answers, but not as a robot: %2. Check whether the port is the robot&apos;s.</source>
        <translation>%1 antwortet, aber nicht als Roboter: %2. Prüfen Sie, ob der Port der des Roboters ist.</translation>
    </message>
    <message>
        <source>%1 needs an encrypted connection, but OpenSSL is missing on this computer. Install the package libssl3 and start again.</source>
        <translation>%1 braucht eine verschlüsselte Verbindung, aber auf diesem Computer fehlt OpenSSL. Installieren Sie das Paket libssl3, und starten Sie neu.</translation>
    </message>
    <message>
        <source>%1 answers, but does not encrypt. Check the port, or write ws:// in place of wss://: then nothing is encrypted.</source>
        <translation>%1 antwortet, verschlüsselt aber nicht. Prüfen Sie den Port, oder schreiben Sie ws:// statt wss://: Dann wird nichts verschlüsselt.</translation>
    </message>
    <message>
        <source>%1 was not connected to. %2</source>
        <translation>Mit %1 wurde keine Verbindung aufgebaut. %2</translation>
    </message>
    <message>
        <source>%1 wants a user name and a password (&quot;%2&quot;). This program cannot log in: have the server let this computer in without, or use another way to the robot, as through a tunnel.</source>
        <translation>%1 verlangt Benutzername und Kennwort („%2“). Dieses Programm kann sich nicht anmelden: Lassen Sie diesen Computer am Server ohne Anmeldung zu, oder wählen Sie einen anderen Weg zum Roboter, etwa einen Tunnel.</translation>
    </message>
    <message>
        <source>%1 does not let this computer in (&quot;%2&quot;). Change on the server who may connect.</source>
        <translation>%1 lässt diesen Computer nicht zu („%2“). Ändern Sie am Server, wer sich verbinden darf.</translation>
    </message>
    <message>
        <source>%1 is there, but has no robot at this path (&quot;%2&quot;). Check the port in the address, and the path after it.</source>
        <translation>%1 ist da, hat unter diesem Pfad aber keinen Roboter („%2“). Prüfen Sie in der Adresse den Port und den Pfad dahinter.</translation>
    </message>
    <message>
        <source>%1 refers to another address, &quot;%2&quot;. If that is the robot&apos;s, enter it, beginning with ws:// or wss://.</source>
        <translation>%1 verweist auf eine andere Adresse, „%2“. Ist sie die des Roboters, geben Sie sie ein, mit ws:// oder wss:// am Anfang.</translation>
    </message>
</context>
<context>
    <name>rosbridge::client::Inbox</name>
    <message>
        <source>the operation &quot;%1&quot; is not for clients</source>
        <translation>die Operation „%1“ ist nicht für Clients</translation>
    </message>
    <message>
        <source>&quot;publish&quot; needs a text &quot;topic&quot; and an object &quot;msg&quot;</source>
        <translation>„publish“ braucht einen Text „topic“ und ein Objekt „msg“</translation>
    </message>
    <message>
        <source>&quot;service_response&quot; needs a text &quot;id&quot; and a true or false &quot;result&quot;</source>
        <translation>„service_response“ braucht einen Text „id“ und ein wahres oder falsches „result“</translation>
    </message>
    <message>
        <source>The service %1 failed: %2</source>
        <translation>Der Dienst %1 ist gescheitert: %2</translation>
    </message>
    <message>
        <source>The service %1 failed and did not say why.</source>
        <translation>Der Dienst %1 ist gescheitert und sagte nicht, warum.</translation>
    </message>
    <message>
        <source>&quot;status&quot; needs a text &quot;level&quot; and a text &quot;msg&quot;</source>
        <translation>„status“ braucht einen Text „level“ und einen Text „msg“</translation>
    </message>
</context>
<context>
    <name>rosbridge::protocol::Address</name>
    <message>
        <source>The robot&apos;s address is empty: write a host name or an IP address, for example %1:%2.</source>
        <translation>Die Adresse des Roboters ist leer: Schreiben Sie einen Hostnamen oder eine IP-Adresse, zum Beispiel %1:%2.</translation>
    </message>
    <message>
        <source>The address &quot;%1&quot; contains a space: remove it.</source>
        <translation>Die Adresse „%1“ enthält ein Leerzeichen: Entfernen Sie es.</translation>
    </message>
    <message>
        <source>The address &quot;%1&quot; lacks the closing bracket: write [IPv6 address] or [IPv6 address]:port.</source>
        <translation>Der Adresse „%1“ fehlt die schließende Klammer: Schreiben Sie [IPv6-Adresse] oder [IPv6-Adresse]:Port.</translation>
    </message>
    <message>
        <source>The address &quot;%1&quot; is not understood: put only an IPv6 address in brackets, and only &quot;:port&quot; after them.</source>
        <translation>Die Adresse „%1“ ist nicht zu verstehen: In Klammern darf nur eine IPv6-Adresse stehen und danach nur „:Port“.</translation>
    </message>
    <message>
        <source>The address &quot;%1&quot; can be read in two ways: put the IPv6 address in brackets, [IPv6 address] or [IPv6 address]:port.</source>
        <translation>Die Adresse „%1“ lässt sich auf zwei Arten lesen: Setzen Sie die IPv6-Adresse in Klammern, [IPv6-Adresse] oder [IPv6-Adresse]:Port.</translation>
    </message>
    <message>
        <source>The address &quot;%1&quot; is not understood: write a host name or an IP address, followed by &quot;:port&quot; if the port is not %2.</source>
        <translation>Die Adresse „%1“ ist nicht zu verstehen: Schreiben Sie einen Hostnamen oder eine IP-Adresse, gefolgt von „:Port“, wenn der Port nicht %2 ist.</translation>
    </message>
    <message>
        <source>The port &quot;%1&quot; in the address &quot;%2&quot; is not valid: write a number from 1 to 65535.</source>
        <translation>Der Port „%1“ in der Adresse „%2“ ist nicht gültig: Schreiben Sie eine Zahl von 1 bis 65535.</translation>
    </message>
    <message>
        <source>The address &quot;%1&quot; is not that of a robot: write ws:// or wss:// in place of %2, or leave it out.</source>
        <translation>Die Adresse „%1“ ist nicht die eines Roboters: Schreiben Sie ws:// oder wss:// statt %2, oder lassen Sie es weg.</translation>
    </message>
    <message>
        <source>The address &quot;%1&quot; contains a &quot;#&quot;: leave it out, and what follows it.</source>
        <translation>Die Adresse „%1“ enthält ein „#“: Lassen Sie es weg, und was darauf folgt.</translation>
    </message>
    <message>
        <source>The address of &quot;%1&quot; contains a user name, but this program cannot log in: leave out all up to the &quot;@&quot;.</source>
        <translation>Die Adresse von „%1“ enthält einen Benutzernamen, aber dieses Programm kann sich nicht anmelden: Lassen Sie alles bis zum „@“ weg.</translation>
    </message>
</context>
<context>
    <name>rosbridge::protocol::CborCheck</name>
    <message>
        <source>data follows the message&apos;s end</source>
        <translation>auf das Ende der Nachricht folgen Daten</translation>
    </message>
    <message>
        <source>a field&apos;s name is not text</source>
        <translation>der Name eines Feldes ist kein Text</translation>
    </message>
    <message>
        <source>only arrays and objects may have indefinite length</source>
        <translation>nur Listen und Objekte dürfen von unbestimmter Länge sein</translation>
    </message>
    <message>
        <source>the simple value %1 is not supported</source>
        <translation>der einfache Wert %1 wird nicht unterstützt</translation>
    </message>
    <message>
        <source>the field &quot;%1&quot; occurs twice</source>
        <translation>das Feld „%1“ kommt zweimal vor</translation>
    </message>
    <message>
        <source>the tag %1 is not that of a typed array</source>
        <translation>das Tag %1 ist nicht das einer getypten Liste</translation>
    </message>
    <message>
        <source>a typed array is not a byte string</source>
        <translation>eine getypte Liste ist keine Bytefolge</translation>
    </message>
    <message>
        <source>an unexpected end marker</source>
        <translation>eine unerwartete Endmarke</translation>
    </message>
    <message>
        <source>the data ends too early</source>
        <translation>die Daten enden zu früh</translation>
    </message>
    <message>
        <source>the message nests deeper than %1 levels</source>
        <translation>die Nachricht ist tiefer als %1 Ebenen geschachtelt</translation>
    </message>
    <message>
        <source>a byte that CBOR does not define</source>
        <translation>ein Byte, das CBOR nicht kennt</translation>
    </message>
    <message>
        <source>%1, at byte %2</source>
        <translation>%1, bei Byte %2</translation>
    </message>
    <message>
        <source>the message has more than %1 values, or %2 texts, arrays and objects</source>
        <translation>die Nachricht hat mehr als %1 Werte oder %2 Texte, Listen und Objekte</translation>
    </message>
</context>
<context>
    <name>rosbridge::protocol::Codec</name>
    <message>
        <source>the message has %1 bytes, the limit is %2</source>
        <translation>die Nachricht hat %1 Bytes, die Grenze ist %2</translation>
    </message>
    <message>
        <source>the message has no text field &quot;op&quot;</source>
        <translation>die Nachricht hat kein Textfeld „op“</translation>
    </message>
    <message>
        <source>a truth value</source>
        <translation>ein Wahrheitswert</translation>
    </message>
    <message>
        <source>a number</source>
        <translation>eine Zahl</translation>
    </message>
    <message>
        <source>text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>a byte string</source>
        <translation>eine Bytefolge</translation>
    </message>
    <message>
        <source>an array</source>
        <translation>eine Liste</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>ein Objekt</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>nichts</translation>
    </message>
    <message>
        <source>the message nests deeper than %1 levels</source>
        <translation>die Nachricht ist tiefer als %1 Ebenen geschachtelt</translation>
    </message>
    <message>
        <source>the text is not valid JSON: %1, at byte %2</source>
        <translation>der Text ist kein gültiges JSON: %1, bei Byte %2</translation>
    </message>
    <message>
        <source>the message is not a JSON object</source>
        <translation>die Nachricht ist kein JSON-Objekt</translation>
    </message>
    <message>
        <source>the message contains a field twice</source>
        <translation>die Nachricht enthält ein Feld zweimal</translation>
    </message>
    <message>
        <source>the data is not valid CBOR: %1, at byte %2</source>
        <translation>die Daten sind kein gültiges CBOR: %1, bei Byte %2</translation>
    </message>
    <message>
        <source>the message is %1, not an object</source>
        <translation>die Nachricht ist %1, kein Objekt</translation>
    </message>
    <message>
        <source>found %1, not an array of numbers</source>
        <translation>gefunden: %1, keine Zahlenliste</translation>
    </message>
    <message>
        <source>element %1 is %2, not a number</source>
        <translation>Element %1 ist %2, keine Zahl</translation>
    </message>
    <message>
        <source>the name of a field is not valid Unicode</source>
        <translation>der Name eines Felds ist kein gültiges Unicode</translation>
    </message>
</context>
<context>
    <name>rosbridge::protocol::Fields</name>
    <message>
        <source>is %1, not a number</source>
        <translation>ist %1, keine Zahl</translation>
    </message>
    <message>
        <source>is %1, not a whole number from %2 to %3</source>
        <translation>ist %1, keine ganze Zahl von %2 bis %3</translation>
    </message>
    <message>
        <source>is %1, not true or false</source>
        <translation>ist %1, nicht true oder false</translation>
    </message>
    <message>
        <source>is %1, not text</source>
        <translation>ist %1, kein Text</translation>
    </message>
    <message>
        <source>is %1, not an array of texts</source>
        <translation>ist %1, keine Liste von Texten</translation>
    </message>
    <message>
        <source>has %1 as element %2, not text</source>
        <translation>hat als Element %2 %1, keinen Text</translation>
    </message>
    <message>
        <source>cannot be read: %1</source>
        <translation>kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>is %1, not an object</source>
        <translation>ist %1, kein Objekt</translation>
    </message>
    <message>
        <source>the field &quot;%1&quot; %2</source>
        <translation>das Feld „%1“ %2</translation>
    </message>
    <message>
        <source>is missing</source>
        <translation>fehlt</translation>
    </message>
    <message>
        <source>has %1 elements; at most %2 are accepted</source>
        <translation>hat %1 Elemente; höchstens %2 werden angenommen</translation>
    </message>
    <message>
        <source>is %1, not bytes</source>
        <translation>ist %1, keine Bytes</translation>
    </message>
    <message>
        <source>is text, but not base64</source>
        <translation>ist Text, aber kein Base64</translation>
    </message>
</context>
<context>
    <name>rosbridge::protocol::TypedArray</name>
    <message>
        <source>a value with the tag %1 is not a supported array of numbers</source>
        <translation>ein Wert mit dem Tag %1 ist keine unterstützte Zahlenliste</translation>
    </message>
    <message>
        <source>the typed array has %1 bytes, not a multiple of its element&apos;s %2</source>
        <translation>die getypte Liste hat %1 Bytes, kein Vielfaches der %2 ihres Elements</translation>
    </message>
</context>
<context>
    <name>rosbridge::serialization::MessageDefinition</name>
    <message>
        <source>&quot;%1&quot; stands where the name of a type is due</source>
        <translation>„%1“ steht, wo der Name eines Typs stehen muss</translation>
    </message>
    <message>
        <source>the definition of &quot;%1&quot; cannot be used: %2</source>
        <translation>die Definition von „%1“ ist nicht verwendbar: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is neither a field nor a constant</source>
        <translation>„%1“ ist weder ein Feld noch eine Konstante</translation>
    </message>
    <message>
        <source>the field &quot;%1&quot; is there twice</source>
        <translation>das Feld „%1“ kommt zweimal vor</translation>
    </message>
    <message>
        <source>the field &quot;%1&quot; cannot have %2 elements</source>
        <translation>das Feld „%1“ kann nicht %2 Elemente haben</translation>
    </message>
    <message>
        <source>it lacks that of &quot;%1&quot;</source>
        <translation>die von „%1“ fehlt darin</translation>
    </message>
    <message>
        <source>its messages are nested too deeply</source>
        <translation>ihre Nachrichten sind zu tief verschachtelt</translation>
    </message>
</context>
<context>
    <name>rosbridge::serialization::MessageReader</name>
    <message>
        <source>the field &quot;%1&quot; %2</source>
        <translation>das Feld „%1“ %2</translation>
    </message>
    <message>
        <source>there are %1 bytes more than a message has</source>
        <translation>es sind %1 Bytes mehr, als eine Nachricht hat</translation>
    </message>
    <message>
        <source>has %1 elements, more than there are bytes for</source>
        <translation>hat %1 Elemente, mehr als die Bytes reichen</translation>
    </message>
    <message>
        <source>is one part too many: more than %1</source>
        <translation>ist ein Teil zu viel: mehr als %1</translation>
    </message>
    <message>
        <source>ends too early: it takes %1 bytes, and %2 are left</source>
        <translation>endet zu früh: Es braucht %1 Bytes, und %2 sind übrig</translation>
    </message>
</context>
<context>
    <name>rosbridge::serialization::MessageWriter</name>
    <message>
        <source>the field &quot;%1&quot; %2</source>
        <translation>das Feld „%1“ %2</translation>
    </message>
    <message>
        <source>is missing</source>
        <translation>fehlt</translation>
    </message>
    <message>
        <source>is text, but not base64</source>
        <translation>ist Text, aber kein Base64</translation>
    </message>
    <message>
        <source>is %1, not an array</source>
        <translation>ist %1, keine Liste</translation>
    </message>
    <message>
        <source>cannot be read: %1</source>
        <translation>kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>is an array of numbers, not of &quot;%1&quot;</source>
        <translation>ist eine Liste von Zahlen, nicht von „%1“</translation>
    </message>
    <message>
        <source>has %1 elements, not %2</source>
        <translation>hat %1 Elemente, nicht %2</translation>
    </message>
    <message>
        <source>is %1, not true or false</source>
        <translation>ist %1, nicht true oder false</translation>
    </message>
    <message>
        <source>is %1, not an object</source>
        <translation>ist %1, kein Objekt</translation>
    </message>
    <message>
        <source>is %1, not text</source>
        <translation>ist %1, kein Text</translation>
    </message>
    <message>
        <source>is %1, not a time</source>
        <translation>ist %1, keine Zeit</translation>
    </message>
    <message>
        <source>is %1, not a number</source>
        <translation>ist %1, keine Zahl</translation>
    </message>
    <message>
        <source>is %1, not a whole number from %2 to %3</source>
        <translation>ist %1, keine ganze Zahl von %2 bis %3</translation>
    </message>
</context>
<context>
    <name>rosbridge::server::ClientSession</name>
    <message>
        <source>more than %1 messages a second</source>
        <translation>mehr als %1 Nachrichten je Sekunde</translation>
    </message>
    <message>
        <source>it does not read its answers</source>
        <translation>er liest seine Antworten nicht</translation>
    </message>
    <message>
        <source>this client reads too slowly: messages of topics are dropped</source>
        <translation>dieser Client liest zu langsam: Nachrichten von Topics werden verworfen</translation>
    </message>
    <message>
        <source>it did not answer for %1 s</source>
        <translation>er hat %1 s lang nicht geantwortet</translation>
    </message>
    <message>
        <source>it closed the connection</source>
        <translation>er hat die Verbindung geschlossen</translation>
    </message>
    <message>
        <source>more than %1 bytes a second</source>
        <translation>mehr als %1 Bytes in der Sekunde</translation>
    </message>
    <message>
        <source>its connection broke</source>
        <translation>seine Verbindung ist abgebrochen</translation>
    </message>
</context>
<context>
    <name>rosbridge::server::Conversation</name>
    <message>
        <source>this robot does not know the operation</source>
        <translation>dieser Roboter kennt die Operation nicht</translation>
    </message>
    <message>
        <source>level must be none, error, warning or info</source>
        <translation>level muss none, error, warning oder info sein</translation>
    </message>
    <message>
        <source>the level is &quot;%1&quot;</source>
        <translation>die Stufe ist „%1“</translation>
    </message>
    <message>
        <source>the type of &quot;%1&quot; is %2, not %3</source>
        <translation>der Typ von „%1“ ist %2, nicht %3</translation>
    </message>
    <message>
        <source>a client may advertise at most %1 topics</source>
        <translation>ein Client darf höchstens %1 Topics anmelden</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is advertised</source>
        <translation>„%1“ ist angemeldet</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no longer advertised</source>
        <translation>„%1“ ist nicht mehr angemeldet</translation>
    </message>
    <message>
        <source>this client did not advertise &quot;%1&quot;</source>
        <translation>dieser Client hat „%1“ nicht angemeldet</translation>
    </message>
    <message>
        <source>the robot accepts commands on &quot;%1&quot; and publishes nothing there</source>
        <translation>der Roboter nimmt auf „%1“ Befehle an und veröffentlicht dort nichts</translation>
    </message>
    <message>
        <source>a client may have at most %1 subscriptions</source>
        <translation>ein Client darf höchstens %1 Abonnements haben</translation>
    </message>
    <message>
        <source>queue_length is reduced to %1, the maximum</source>
        <translation>queue_length ist auf %1 verringert, das Höchste</translation>
    </message>
    <message>
        <source>fragment_size is ignored, messages are sent whole</source>
        <translation>fragment_size wird nicht beachtet, Nachrichten werden ganz gesendet</translation>
    </message>
    <message>
        <source>subscribed to &quot;%1&quot;</source>
        <translation>„%1“ ist abonniert</translation>
    </message>
    <message>
        <source>there is no such subscription to &quot;%1&quot;</source>
        <translation>es gibt kein solches Abonnement von „%1“</translation>
    </message>
    <message>
        <source>unsubscribed from &quot;%1&quot;</source>
        <translation>„%1“ ist abbestellt</translation>
    </message>
    <message>
        <source>the robot called no service of this client</source>
        <translation>der Roboter hat keinen Dienst dieses Clients aufgerufen</translation>
    </message>
    <message>
        <source>the compression &quot;%1&quot; is unknown here; use none, cbor or, for topics, cbor-raw</source>
        <translation>die Kompression „%1“ ist hier unbekannt; verwenden Sie none, cbor oder, für Topics, cbor-raw</translation>
    </message>
</context>
<context>
    <name>rosbridge::server::Endpoint</name>
    <message>
        <source>the robot shuts down</source>
        <translation>der Roboter fährt herunter</translation>
    </message>
    <message>
        <source>client %1 (%2)</source>
        <translation>Client %1 (%2)</translation>
    </message>
    <message>
        <source>the robot serves at most %1 clients</source>
        <translation>der Roboter bedient höchstens %1 Clients</translation>
    </message>
</context>
<context>
    <name>rosbridge::server::Request</name>
    <message>
        <source>%1 is required and must not be empty</source>
        <translation>%1 ist erforderlich und darf nicht leer sein</translation>
    </message>
    <message>
        <source>%1 must be a whole number from 0 to %2</source>
        <translation>%1 muss eine ganze Zahl von 0 bis %2 sein</translation>
    </message>
    <message>
        <source>%1 must be an object</source>
        <translation>%1 muss ein Objekt sein</translation>
    </message>
    <message>
        <source>%1 must be text</source>
        <translation>%1 muss Text sein</translation>
    </message>
    <message>
        <source>%1 is longer than %2 characters</source>
        <translation>%1 ist länger als %2 Zeichen</translation>
    </message>
    <message>
        <source>id must be a finite number, or text of at most %1 characters</source>
        <translation>id muss eine endliche Zahl sein oder Text von höchstens %1 Zeichen</translation>
    </message>
</context>
<context>
    <name>rosbridge::server::ServiceRegistry</name>
    <message>
        <source>this robot has no service &quot;%1&quot;; /rosapi/services lists them</source>
        <translation>dieser Roboter hat keinen Dienst „%1“; /rosapi/services listet sie auf</translation>
    </message>
    <message>
        <source>args of &quot;%1&quot; must be an object, or a list of at most %2 values</source>
        <translation>args von „%1“ muss ein Objekt sein oder eine Liste von höchstens %2 Werten</translation>
    </message>
</context>
<context>
    <name>rosbridge::server::TopicRegistry</name>
    <message>
        <source>this robot has no topic &quot;%1&quot;; /rosapi/topics lists them</source>
        <translation>dieser Roboter hat kein Topic „%1“; /rosapi/topics listet sie auf</translation>
    </message>
    <message>
        <source>the robot itself publishes &quot;%1&quot; and accepts no messages there</source>
        <translation>der Roboter selbst veröffentlicht „%1“ und nimmt dort keine Nachrichten an</translation>
    </message>
</context>
<context>
    <name>rosbridge::websocket::Connector</name>
    <message>
        <source>it does not answer</source>
        <translation>keine Antwort</translation>
    </message>
    <message>
        <source>this computer has too many connections open</source>
        <translation>dieser Computer hat zu viele Verbindungen offen</translation>
    </message>
    <message>
        <source>the connection failed</source>
        <translation>die Verbindung ist gescheitert</translation>
    </message>
    <message>
        <source>it does not speak HTTP</source>
        <translation>die Antwort ist kein HTTP</translation>
    </message>
    <message>
        <source>it answers &quot;%1&quot;</source>
        <translation>die Antwort ist „%1“</translation>
    </message>
    <message>
        <source>its answer does not end</source>
        <translation>die Antwort nimmt kein Ende</translation>
    </message>
    <message>
        <source>it closed the connection without an answer</source>
        <translation>die Verbindung wurde ohne Antwort geschlossen</translation>
    </message>
    <message>
        <source>there is no route to it</source>
        <translation>kein Weg führt dorthin</translation>
    </message>
    <message>
        <source>this computer does not allow the connection</source>
        <translation>dieser Computer lässt die Verbindung nicht zu</translation>
    </message>
    <message>
        <source>its handshake does not follow WebSocket</source>
        <translation>der Handshake entspricht nicht WebSocket</translation>
    </message>
    <message>
        <source>nobody but itself vouches for it</source>
        <translation>nur es selbst bürgt für sich</translation>
    </message>
    <message>
        <source>this computer does not know who issued it</source>
        <translation>dieser Computer kennt den Aussteller nicht</translation>
    </message>
    <message>
        <source>it was issued for another host</source>
        <translation>es ist für einen anderen Host ausgestellt</translation>
    </message>
    <message>
        <source>it has expired</source>
        <translation>es ist abgelaufen</translation>
    </message>
    <message>
        <source>it is not valid yet, by this computer&apos;s clock</source>
        <translation>es gilt nach der Uhr dieses Computers noch nicht</translation>
    </message>
    <message>
        <source>Its certificate cannot be verified: %1.</source>
        <translation>Sein Zertifikat lässt sich nicht prüfen: %1.</translation>
    </message>
    <message>
        <source>it closed the connection without an answer (if it encrypts, write wss:// before the address)</source>
        <translation>die Verbindung wurde ohne Antwort geschlossen (wird dort verschlüsselt, schreiben Sie wss:// vor die Adresse)</translation>
    </message>
</context>
<context>
    <name>rosbridge::websocket::FrameReader</name>
    <message>
        <source>a frame uses an extension that was not agreed on</source>
        <translation>ein Frame nutzt eine Erweiterung, die nicht vereinbart ist</translation>
    </message>
    <message>
        <source>a server&apos;s frame is masked</source>
        <translation>ein Frame des Servers ist maskiert</translation>
    </message>
    <message>
        <source>a client&apos;s frame is not masked</source>
        <translation>ein Frame des Clients ist nicht maskiert</translation>
    </message>
    <message>
        <source>a message begins inside another</source>
        <translation>eine Nachricht beginnt innerhalb einer anderen</translation>
    </message>
    <message>
        <source>a frame continues no message</source>
        <translation>ein Frame setzt keine Nachricht fort</translation>
    </message>
    <message>
        <source>a frame is of a kind that does not exist</source>
        <translation>ein Frame hat eine Art, die es nicht gibt</translation>
    </message>
    <message>
        <source>a message has more than %1 bytes</source>
        <translation>eine Nachricht hat mehr als %1 Bytes</translation>
    </message>
    <message>
        <source>a frame&apos;s length is encoded wrongly</source>
        <translation>die Länge eines Frames ist falsch kodiert</translation>
    </message>
    <message>
        <source>a control frame is too long or split</source>
        <translation>ein Steuer-Frame ist zu lang oder geteilt</translation>
    </message>
    <message>
        <source>a message has too many empty frames</source>
        <translation>eine Nachricht hat zu viele leere Frames</translation>
    </message>
</context>
<context>
    <name>rosbridge::websocket::Socket</name>
    <message>
        <source>a text is not UTF-8</source>
        <translation>ein Text ist nicht UTF-8</translation>
    </message>
</context>
</TS>
