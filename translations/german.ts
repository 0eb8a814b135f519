<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>AboutDialog</name>
    <message>
        <source>About</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>&lt;span&gt;Version: %1&lt;br/&gt;Zlt API version: %3&lt;/span&gt;</source>
        <translation>&lt;span&gt;Version: %1&lt;br/&gt;Version der Zlt-API: %3&lt;/span&gt;</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>AsynchronousCameraController</name>
    <message>
        <source>Camera can&apos;t be opened, 
 because could be in use by another application, or isn&apos;t on the list</source>
        <translation>Die Kamera kann nicht geöffnet werden, 
 weil eine andere Anwendung sie benutzt oder weil sie nicht in der Liste steht</translation>
    </message>
    <message>
        <source>Cannot open camera stream</source>
        <translation>Der Bildstrom der Kamera kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>Camera is in use by another application</source>
        <translation>Die Kamera wird von einer anderen Anwendung benutzt</translation>
    </message>
    <message>
        <source>Activating new sensor temperature setpoint has run into a timeout!</source>
        <translation>Zeitüberschreitung beim Aktivieren des neuen Temperatur-Sollwerts!</translation>
    </message>
    <message>
        <source>Cannot retrieve the current value of &apos;Gain&apos;. Error: %1</source>
        <translation>Der aktuelle Wert von &apos;Gain&apos; kann nicht gelesen werden. Fehler: %1</translation>
    </message>
    <message>
        <source>Cannot retrieve the current &apos;SensorTemperatureSetpointValue&apos;. Error: %1</source>
        <translation>Der aktuelle &apos;SensorTemperatureSetpointValue&apos; kann nicht gelesen werden. Fehler: %1</translation>
    </message>
    <message>
        <source>Camera or DPC is not supported</source>
        <translation>Die Kamera oder ihre DPC wird nicht unterstützt</translation>
    </message>
    <message>
        <source>Factory set can&apos;t be overwritten!</source>
        <translation>Der Werkssatz kann nicht überschrieben werden!</translation>
    </message>
    <message>
        <source>Correction set is not writable</source>
        <translation>Der Korrektursatz kann nicht beschrieben werden</translation>
    </message>
    <message>
        <source>Not enough memory in the camera</source>
        <translation>Nicht genug Speicher in der Kamera</translation>
    </message>
    <message>
        <source>Error with saving pixels
</source>
        <translation>Fehler beim Speichern der Pixel
</translation>
    </message>
</context>
<context>
    <name>AutomaticDetectorDialog</name>
    <message>
        <source>Automatic Detection</source>
        <translation>Automatische Erkennung</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>AutomaticDetectorLoader</name>
    <message>
        <source>Please wait..</source>
        <translation>Bitte warten..</translation>
    </message>
    <message>
        <source>Please wait...</source>
        <translation>Bitte warten...</translation>
    </message>
    <message>
        <source>%1 defects found</source>
        <translation>%1 Defekte gefunden</translation>
    </message>
    <message>
        <source>Detection is done</source>
        <translation>Erkennung abgeschlossen</translation>
    </message>
    <message>
        <source>Detection is cancelled</source>
        <translation>Erkennung abgebrochen</translation>
    </message>
    <message>
        <source>Detection is done.
%1 defects found.</source>
        <translation>Erkennung abgeschlossen.
%1 Defekte gefunden.</translation>
    </message>
    <message>
        <source>Searching defective pixels on your camera</source>
        <translation>Defekte Pixel Ihrer Kamera werden gesucht</translation>
    </message>
    <message>
        <source>Searching defective pixels on your camera...</source>
        <translation>Defekte Pixel Ihrer Kamera werden gesucht...</translation>
    </message>
    <message>
        <source>Do you wish to continue correction?
The operation will erase the current pixel list of the user set.</source>
        <translation>Möchten Sie mit der Korrektur fortfahren?
Dabei wird die jetzige Pixelliste des Benutzersatzes gelöscht.</translation>
    </message>
    <message>
        <source>Adding...</source>
        <translation>Hinzufügen...</translation>
    </message>
    <message>
        <source>Defective pixels and the &quot;Upload to camera&quot; button are available in the pixel list.</source>
        <translation>Die defekten Pixel und die Schaltfläche &quot;In die Kamera übertragen&quot; finden Sie in der Pixelliste.</translation>
    </message>
    <message>
        <source>The maximum number of defects
supported by the tool (%1) is exceeded.

Please check your configuration:

Threshold too low?
Exposure or gain too high?
Camera not properly covered?</source>
        <translation>Die größte Zahl von Defekten,
die das Programm annimmt (%1), ist überschritten.

Bitte prüfen Sie Ihre Einstellungen:

Schwelle zu niedrig?
Belichtung oder Verstärkung zu hoch?
Kamera nicht richtig abgedeckt?</translation>
    </message>
    <message>
        <source>Stop detection</source>
        <translation>Erkennung abbrechen</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Fortfahren</translation>
    </message>
    <message>
        <source>Configure</source>
        <translation>Einstellen</translation>
    </message>
</context>
<context>
    <name>AutomaticDetectorStarter</name>
    <message>
        <source>Cover camera or lens</source>
        <translation>Kamera oder Objektiv abdecken</translation>
    </message>
    <message>
        <source>To be sure that automatic detection will work fine, please cover your camera or lens.

Switch off all correction sets to enable detection of all defective pixels.</source>
        <translation>Damit die automatische Erkennung zuverlässig arbeitet, decken Sie bitte Ihre Kamera oder ihr Objektiv ab.

Schalten Sie alle Korrektursätze aus, damit alle defekten Pixel erkannt werden.</translation>
    </message>
    <message>
        <source>Configure</source>
        <translation>Einstellen</translation>
    </message>
    <message>
        <source>Start detection</source>
        <translation>Erkennung starten</translation>
    </message>
</context>
<context>
    <name>BottomPanel</name>
    <message>
        <source>&lt;b&gt;Start and Stop (press P)&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Start or stop image acquisition (P)&lt;/span&gt;</source>
        <translation>&lt;b&gt;Start und Stopp (Taste P)&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Bildaufnahme starten oder anhalten (P)&lt;/span&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Overlay&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Switch pixel overlay on or off&lt;/span&gt;</source>
        <translation>&lt;b&gt;Einblendung&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Markierung der Pixel ein- oder ausblenden&lt;/span&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Overview&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Show or hide the overview window&lt;/span&gt;</source>
        <translation>&lt;b&gt;Übersicht&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Übersichtsfenster ein- oder ausblenden&lt;/span&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Scale&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Reset zoom&lt;/span&gt;</source>
        <translation>&lt;b&gt;Maßstab&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Zoom zurücksetzen&lt;/span&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Zoom In (press +[numpad])&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Zoom In (+[numpad])&lt;/span&gt;</source>
        <translation>&lt;b&gt;Vergrößern (Taste +[Ziffernblock])&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Vergrößern (+[Ziffernblock])&lt;/span&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Zoom Out (press -[numpad])&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Zoom Out (-[numpad])&lt;/span&gt;</source>
        <translation>&lt;b&gt;Verkleinern (Taste -[Ziffernblock])&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Verkleinern (-[Ziffernblock])&lt;/span&gt;</translation>
    </message>
</context>
<context>
    <name>CameraOptionPanel</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>&lt;b&gt;Reset&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Reset to default&lt;/span&gt;</source>
        <translation>&lt;b&gt;Zurücksetzen&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Auf die Standardwerte zurücksetzen&lt;/span&gt;</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Pixel format</source>
        <translation>Pixelformat</translation>
    </message>
    <message>
        <source>Debayering</source>
        <translation>Debayering</translation>
    </message>
    <message>
        <source>Exposure</source>
        <translation>Belichtung</translation>
    </message>
    <message>
        <source>Gamma</source>
        <translation>Gamma</translation>
    </message>
    <message>
        <source>BlackLevel</source>
        <translation>Schwarzwert</translation>
    </message>
    <message>
        <source>Gain</source>
        <translation>Verstärkung</translation>
    </message>
    <message>
        <source>Continuous</source>
        <translation>Kontinuierlich</translation>
    </message>
    <message>
        <source>Once</source>
        <translation>Einmalig</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>Sensor Temperature Control:</source>
        <translation>Temperaturregelung des Sensors:</translation>
    </message>
    <message>
        <source>Control mode</source>
        <translation>Regelmodus</translation>
    </message>
    <message>
        <source>Control state</source>
        <translation>Regelstatus</translation>
    </message>
    <message>
        <source>Setpoint mode</source>
        <translation>Sollwertmodus</translation>
    </message>
    <message>
        <source>Active setpoint</source>
        <translation>Aktiver Sollwert</translation>
    </message>
    <message>
        <source>Temperature setpoint</source>
        <translation>Temperatur-Sollwert</translation>
    </message>
    <message>
        <source>Activate</source>
        <translation>Aktivieren</translation>
    </message>
    <message>
        <source>Activate selected setpoint</source>
        <translation>Ausgewählten Sollwert aktivieren</translation>
    </message>
    <message>
        <source>Dataset active</source>
        <translation>Aktiver Datensatz</translation>
    </message>
    <message>
        <source>NUC Mode</source>
        <translation>NUC-Modus</translation>
    </message>
    <message>
        <source>Select NUC mode</source>
        <translation>NUC-Modus auswählen</translation>
    </message>
</context>
<context>
    <name>ConfirmDialog</name>
    <message>
        <source>Confirm</source>
        <translation>Bestätigen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>CorrectionListWidget</name>
    <message>
        <source>[Empty Set]</source>
        <translation>[Leerer Satz]</translation>
    </message>
    <message>
        <source>DPC On/Off</source>
        <translation>DPC ein/aus</translation>
    </message>
    <message>
        <source>Default correction set</source>
        <translation>Standardkorrektursatz</translation>
    </message>
    <message>
        <source>&lt;b&gt;Default correction set&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Set the default correction set&lt;/span&gt;</source>
        <translation>&lt;b&gt;Standard-Korrektursatz&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Den Standard-Korrektursatz festlegen&lt;/span&gt;</translation>
    </message>
    <message>
        <source>This Correction Set cannot be set to default</source>
        <translation>Dieser Korrektursatz kann nicht als Standard festgelegt werden</translation>
    </message>
    <message>
        <source>&lt;b&gt;DPC On/Off&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Switch DPC on or off&lt;/span&gt;</source>
        <translation>&lt;b&gt;DPC ein/aus&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;DPC ein- oder ausschalten&lt;/span&gt;</translation>
    </message>
    <message>
        <source>This Correction Set cannot be enabled</source>
        <translation>Dieser Korrektursatz kann nicht eingeschaltet werden</translation>
    </message>
</context>
<context>
    <name>CustomGraphicsView</name>
    <message>
        <source>Save current Pixel</source>
        <translation>Aktuelles Pixel speichern</translation>
    </message>
    <message>
        <source>Reset View</source>
        <translation>Ansicht zurücksetzen</translation>
    </message>
    <message>
        <source>x: %1
y: %2</source>
        <translation>x: %1
y: %2</translation>
    </message>
</context>
<context>
    <name>DefectEntryDialog</name>
    <message>
        <source>Single Pixel Defect</source>
        <translation>Einzelpixel-Defekt</translation>
    </message>
    <message>
        <source>Pixel Column Defect</source>
        <translation>Pixelspalten-Defekt</translation>
    </message>
    <message>
        <source>Pixel Row Defect</source>
        <translation>Pixelzeilen-Defekt</translation>
    </message>
    <message>
        <source>Cluster Defect</source>
        <translation>Cluster-Defekt</translation>
    </message>
    <message>
        <source>Column Defect</source>
        <translation>Spaltendefekt</translation>
    </message>
    <message>
        <source>Row Defect</source>
        <translation>Zeilendefekt</translation>
    </message>
</context>
<context>
    <name>DefectEntryForm</name>
    <message>
        <source>Add pixel coordinates</source>
        <translation>Pixelkoordinaten eingeben</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Pixel type:</source>
        <translation>Pixeltyp:</translation>
    </message>
    <message>
        <source>x:</source>
        <translation>x:</translation>
    </message>
    <message>
        <source>y:</source>
        <translation>y:</translation>
    </message>
    <message>
        <source>width:</source>
        <translation>Breite:</translation>
    </message>
    <message>
        <source>height:</source>
        <translation>Höhe:</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>DpcMarker</name>
    <message>
        <source>DPC Unsupported</source>
        <translation>Ohne DPC</translation>
    </message>
</context>
<context>
    <name>EditPixelDialog</name>
    <message>
        <source>Entered values are out of scope!</source>
        <translation>Die eingegebenen Werte liegen außerhalb des Sensors!</translation>
    </message>
</context>
<context>
    <name>FileUploadDialog</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Gain</source>
        <translation>Verstärkung</translation>
    </message>
    <message>
        <source>Exposure, µS</source>
        <translation>Belichtung, µs</translation>
    </message>
    <message>
        <source>Temperature Setpoint, °C</source>
        <translation>Temperatur-Sollwert, °C</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>Überschreiben</translation>
    </message>
    <message>
        <source>Upload To Camera : %1</source>
        <translation>In die Kamera übertragen: %1</translation>
    </message>
    <message>
        <source>WARNING: 
The current metadata is equal to already existing Set &apos;%1&apos;.
&quot;Overwrite&quot; would remove it and save the Set &apos;%2&apos;.</source>
        <translation>WARNUNG: 
Die aktuellen Metadaten stimmen mit dem vorhandenen Satz &apos;%1&apos; überein.
„Überschreiben“ würde ihn entfernen und den Satz &apos;%2&apos; speichern.</translation>
    </message>
</context>
<context>
    <name>LeftPanel</name>
    <message>
        <source>Cameras</source>
        <translation>Kameras</translation>
    </message>
    <message>
        <source>Refresh list</source>
        <translation>Liste aktualisieren</translation>
    </message>
    <message>
        <source>&lt;b&gt;Refresh List&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Refresh camera list&lt;/span&gt;</source>
        <translation>&lt;b&gt;Liste aktualisieren&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Kameraliste neu einlesen&lt;/span&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Information&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Please select a camera&lt;/span&gt;</source>
        <translation>&lt;b&gt;Information&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Bitte wählen Sie eine Kamera aus&lt;/span&gt;</translation>
    </message>
</context>
<context>
    <name>LoaderDialog</name>
    <message>
        <source>Please wait...</source>
        <translation>Bitte warten...</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Loading</source>
        <translation>Laden</translation>
    </message>
    <message>
        <source>&lt;b&gt;Import&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Load pixel list from an .xml file &lt;/span&gt;</source>
        <translation>&lt;b&gt;Importieren&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Pixelliste aus einer .xml-Datei laden &lt;/span&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Camera List&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;View camera list&lt;/span&gt;</source>
        <translation>&lt;b&gt;Kameraliste&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Kameraliste anzeigen&lt;/span&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Camera Settings&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;View camera settings&lt;/span&gt;</source>
        <translation>&lt;b&gt;Kameraeinstellungen&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Kameraeinstellungen anzeigen&lt;/span&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Grab ( Press 2 )&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Move the visible part of the image&lt;/span&gt;</source>
        <translation>&lt;b&gt;Verschieben ( Taste 2 )&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Den sichtbaren Bildausschnitt verschieben&lt;/span&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Mouse Add ( Press 1 )&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Add pixels to the pixel list&lt;/span&gt;</source>
        <translation>&lt;b&gt;Mit der Maus hinzufügen ( Taste 1 )&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Pixel in die Pixelliste aufnehmen&lt;/span&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Mouse Rubber ( Press 3 )&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Remove selected pixels from list&lt;/span&gt;</source>
        <translation>&lt;b&gt;Radierer ( Taste 3 )&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Ausgewählte Pixel aus der Liste entfernen&lt;/span&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Pixel List&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;View pixel list&lt;/span&gt;</source>
        <translation>&lt;b&gt;Pixelliste&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Pixelliste anzeigen&lt;/span&gt;</translation>
    </message>
    <message>
        <source>Cameras</source>
        <translation>Kameras</translation>
    </message>
    <message>
        <source>Erase</source>
        <translation>Radieren</translation>
    </message>
    <message>
        <source>Grab</source>
        <translation>Verschieben</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Pixel list</source>
        <translation>Pixelliste</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>About Qt</source>
        <translation>Über Qt</translation>
    </message>
    <message>
        <source> %1 %</source>
        <translation> %1 %</translation>
    </message>
    <message>
        <source>Stopping image acquisition...</source>
        <translation>Bildaufnahme wird angehalten...</translation>
    </message>
    <message>
        <source>Saving pixels to .xml...</source>
        <translation>Pixel werden als .xml gespeichert...</translation>
    </message>
    <message>
        <source>Starting image acquisition...</source>
        <translation>Bildaufnahme wird gestartet...</translation>
    </message>
    <message>
        <source>Loading info</source>
        <translation>Ladeinformation</translation>
    </message>
    <message>
        <source>List is empty!</source>
        <translation>Die Liste ist leer!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>.xml</source>
        <translation>.xml</translation>
    </message>
    <message>
        <source>Save File</source>
        <translation>Datei speichern</translation>
    </message>
    <message>
        <source>Reading pixels from .xml...</source>
        <translation>Pixel werden aus .xml gelesen...</translation>
    </message>
    <message>
        <source>Open file</source>
        <translation>Datei öffnen</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>To load .xml file
choose a camera first</source>
        <translation>Um eine .xml-Datei zu laden,
wählen Sie zuerst eine Kamera aus</translation>
    </message>
    <message>
        <source>File is corrupted</source>
        <translation>Die Datei ist beschädigt</translation>
    </message>
    <message>
        <source>Camera Error</source>
        <translation>Kamerafehler</translation>
    </message>
    <message>
        <source>Please select a camera</source>
        <translation>Bitte wählen Sie eine Kamera aus</translation>
    </message>
    <message>
        <source>Reading correction sets...</source>
        <translation>Korrektursätze werden gelesen...</translation>
    </message>
    <message>
        <source>Reading defects from camera...</source>
        <translation>Defekte werden aus der Kamera gelesen...</translation>
    </message>
    <message>
        <source>Opening right panel...</source>
        <translation>Rechter Bereich wird geöffnet...</translation>
    </message>
    <message>
        <source>DPC not supported</source>
        <translation>DPC wird nicht unterstützt</translation>
    </message>
    <message>
        <source>Too many pixels!</source>
        <translation>Zu viele Pixel!</translation>
    </message>
    <message>
        <source>Deleting list</source>
        <translation>Liste löschen</translation>
    </message>
    <message>
        <source>WARNING: All list entries will be deleted!</source>
        <translation>WARNUNG: Alle Einträge der Liste werden gelöscht!</translation>
    </message>
    <message>
        <source>Copy success</source>
        <translation>Kopieren erfolgreich</translation>
    </message>
    <message>
        <source>Setting new camera index...</source>
        <translation>Neue Kamera wird ausgewählt...</translation>
    </message>
    <message>
        <source>Getting current settings of selected camera...</source>
        <translation>Aktuelle Einstellungen der ausgewählten Kamera werden gelesen...</translation>
    </message>
    <message>
        <source>Adjusting overview panel...</source>
        <translation>Übersicht wird angepasst...</translation>
    </message>
    <message>
        <source>Starting image acquisiton...</source>
        <translation>Bildaufnahme wird gestartet...</translation>
    </message>
    <message>
        <source>NOTE:
Reverse X and Y have been disabled, so that coordinates are unambiguous.
Please reenable after you have finished.</source>
        <translation>HINWEIS:
Die Spiegelung in X und Y wurde ausgeschaltet, damit die Koordinaten eindeutig sind.
Bitte schalten Sie sie nach Abschluss wieder ein.</translation>
    </message>
    <message>
        <source>On</source>
        <translation>Ein</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>Getting settings from camera...</source>
        <translation>Einstellungen werden aus der Kamera gelesen...</translation>
    </message>
    <message>
        <source>Adjusting sliders...</source>
        <translation>Regler werden angepasst...</translation>
    </message>
    <message>
        <source>Confirm</source>
        <translation>Bestätigen</translation>
    </message>
    <message>
        <source>Are you sure? 
Reset camera settings</source>
        <translation>Sind Sie sicher? 
Kameraeinstellungen zurücksetzen</translation>
    </message>
    <message>
        <source>Restoring settings...</source>
        <translation>Einstellungen werden zurückgesetzt...</translation>
    </message>
    <message>
        <source>Camera info</source>
        <translation>Kamerainformation</translation>
    </message>
    <message>
        <source>Connection lost</source>
        <translation>Verbindung unterbrochen</translation>
    </message>
    <message>
        <source>Camera has been disconnected</source>
        <translation>Die Verbindung zur Kamera wurde getrennt</translation>
    </message>
    <message>
        <source>Sensor Temperature is not stable, current status is &apos;%1&apos;</source>
        <translation>Die Sensortemperatur ist nicht stabil, aktueller Status: &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Are you sure? 
Overwrite current pixel list</source>
        <translation>Sind Sie sicher? 
Die aktuelle Pixelliste überschreiben</translation>
    </message>
    <message>
        <source>Correction list info</source>
        <translation>Korrekturliste</translation>
    </message>
    <message>
        <source>Select a correction set</source>
        <translation>Bitte einen Korrektursatz auswählen</translation>
    </message>
    <message>
        <source>Are you sure? 
 Overwrite current correction set &apos;%1&apos;</source>
        <translation>Sind Sie sicher? 
 Den aktuellen Korrektursatz &apos;%1&apos; überschreiben</translation>
    </message>
    <message>
        <source>Uploading to the camera...</source>
        <translation>Übertragung in die Kamera...</translation>
    </message>
    <message>
        <source>Checking correction set...</source>
        <translation>Korrektursatz wird geprüft...</translation>
    </message>
    <message>
        <source>Remove duplicates...</source>
        <translation>Duplikate werden entfernt...</translation>
    </message>
    <message>
        <source>Upload successful</source>
        <translation>Übertragung erfolgreich</translation>
    </message>
    <message>
        <source>Changes will only take effect after restarting the camera</source>
        <translation>Die Änderungen wirken erst nach einem Neustart der Kamera</translation>
    </message>
    <message>
        <source>Restart</source>
        <translation>Neustart</translation>
    </message>
    <message>
        <source>Changing DPC state...</source>
        <translation>Korrektur wird umgeschaltet...</translation>
    </message>
    <message>
        <source>Are you sure? 
Reset current correction set to default </source>
        <translation>Sind Sie sicher? 
Jetzigen Korrektursatz auf den Auslieferungszustand zurücksetzen </translation>
    </message>
    <message>
        <source>Getting current row...</source>
        <translation>Jetzige Zeile wird ermittelt...</translation>
    </message>
    <message>
        <source>Restoring correction set...</source>
        <translation>Korrektursatz wird zurückgesetzt...</translation>
    </message>
    <message>
        <source>No valid pixel format</source>
        <translation>Kein gültiges Pixelformat</translation>
    </message>
    <message>
        <source>Supported pixel formats: BayerGR8, BayerRG8, BayerBG8, BayerGB8, Mono8</source>
        <translation>Unterstützte Pixelformate: BayerGR8, BayerRG8, BayerBG8, BayerGB8, Mono8</translation>
    </message>
    <message>
        <source>Switch off Correction Set &apos;%1&apos;... 	&lt;img src=&apos;:/icons/resources/Path Copy 4.svg&apos;/&gt;</source>
        <translation>Korrektursatz &apos;%1&apos; wird ausgeschaltet... 	&lt;img src=&apos;:/icons/resources/Path Copy 4.svg&apos;/&gt;</translation>
    </message>
    <message>
        <source>Change Pixel Format to &apos;%1&apos;... 	&lt;img src=&apos;:/icons/resources/Path Copy 4.svg&apos;/&gt;</source>
        <translation>Pixelformat wird auf &apos;%1&apos; geändert... 	&lt;img src=&apos;:/icons/resources/Path Copy 4.svg&apos;/&gt;</translation>
    </message>
</context>
<context>
    <name>MessageDialog</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>OnboardDialog</name>
    <message>
        <source>Cameras</source>
        <translation>Kameras</translation>
    </message>
    <message>
        <source>In the camera list panel on the left, click the camera you want to open.</source>
        <translation>Klicken Sie in der Kameraliste links auf die Kamera, die Sie öffnen möchten.</translation>
    </message>
    <message>
        <source>Select Tool (press 1)</source>
        <translation>Auswahlwerkzeug (Taste 1)</translation>
    </message>
    <message>
        <source>Grab Tool (press 2)</source>
        <translation>Verschiebewerkzeug (Taste 2)</translation>
    </message>
    <message>
        <source>The Grab tool moves the visible image section.</source>
        <translation>Mit dem Werkzeug „Verschieben“ bewegen Sie den sichtbaren Bildausschnitt.</translation>
    </message>
    <message>
        <source>Erase Tool (press 3)</source>
        <translation>Radierwerkzeug (Taste 3)</translation>
    </message>
    <message>
        <source>Pixel list</source>
        <translation>Pixelliste</translation>
    </message>
    <message>
        <source>The Pixel list on the right automatically reads defective pixels from the user correction set in your camera. They are listed in green.</source>
        <translation>Die Pixelliste rechts liest die defekten Pixel selbsttätig aus dem Benutzer-Korrektursatz Ihrer Kamera. Sie sind grün aufgeführt.</translation>
    </message>
    <message>
        <source>Get started</source>
        <translation>Erste Schritte</translation>
    </message>
</context>
<context>
    <name>RightPanel</name>
    <message>
        <source>Correction sets</source>
        <translation>Korrektursätze</translation>
    </message>
    <message>
        <source>Active:</source>
        <translation>Aktiv:</translation>
    </message>
    <message>
        <source>Default:</source>
        <translation>Standard:</translation>
    </message>
    <message>
        <source>Pixel list</source>
        <translation>Pixelliste</translation>
    </message>
    <message>
        <source>Automatic Detection</source>
        <translation>Automatische Erkennung</translation>
    </message>
    <message>
        <source>Upload to camera</source>
        <translation>In die Kamera übertragen</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keiner</translation>
    </message>
    <message>
        <source>Not available</source>
        <translation>Nicht verfügbar</translation>
    </message>
    <message>
        <source># defects</source>
        <translation># Defekte</translation>
    </message>
    <message>
        <source>s</source>
        <comment>ending of more than one defect</comment>
        <translation>e</translation>
    </message>
    <message>
        <source>%1 defect%2</source>
        <translation>%1 Defekt%2</translation>
    </message>
    <message>
        <source>&lt;b&gt;Copy pixel list&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Copy the current pixel list&lt;/span&gt;</source>
        <translation>&lt;b&gt;Pixelliste kopieren&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Die aktuelle Pixelliste kopieren&lt;/span&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Paste pixel list&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Paste the copied pixel list&lt;/span&gt;</source>
        <translation>&lt;b&gt;Pixelliste einfügen&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Die kopierte Pixelliste einfügen&lt;/span&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Add pixels&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Add pixels&lt;/span&gt;</source>
        <translation>&lt;b&gt;Pixel hinzufügen&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Pixel hinzufügen&lt;/span&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Clear list&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Delete all list items&lt;/span&gt;</source>
        <translation>&lt;b&gt;Liste leeren&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Alle Einträge der Liste löschen&lt;/span&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Export&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Export current pixel list to an .xml file&lt;/span&gt;</source>
        <translation>&lt;b&gt;Exportieren&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Aktuelle Pixelliste in eine .xml-Datei exportieren&lt;/span&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Upload&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Upload current pixel list to the camera&lt;/span&gt;</source>
        <translation>&lt;b&gt;Übertragen&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Aktuelle Pixelliste in die Kamera übertragen&lt;/span&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Restore default set&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Restore default set&lt;/span&gt;</source>
        <translation>&lt;b&gt;Auslieferungszustand&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Den Korrektursatz auf den Auslieferungszustand zurücksetzen&lt;/span&gt;</translation>
    </message>
    <message>
        <source>Preset</source>
        <translation>Voreinstellung</translation>
    </message>
    <message>
        <source>User</source>
        <translation>Benutzer</translation>
    </message>
</context>
<context>
    <name>TreeModel</name>
    <message>
        <source>Single Pixel</source>
        <translation>Einzelpixel</translation>
    </message>
    <message>
        <source>Pixel Column</source>
        <translation>Pixelspalte</translation>
    </message>
    <message>
        <source>Pixel Row</source>
        <translation>Pixelzeile</translation>
    </message>
    <message>
        <source>Cluster</source>
        <translation>Cluster</translation>
    </message>
    <message>
        <source>Column</source>
        <translation>Spalte</translation>
    </message>
    <message>
        <source>Row</source>
        <translation>Zeile</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keiner</translation>
    </message>
    <message>
        <source>X</source>
        <translation>X</translation>
    </message>
    <message>
        <source>Y</source>
        <translation>Y</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Höhe</translation>
    </message>
</context>
<context>
    <name>TresholdExposureWidget</name>
    <message>
        <source>Warning, too high exposure! Detection will take ca. %1 seconds</source>
        <translation>Achtung, zu lange Belichtung! Die Erkennung wird ca. %1 Sekunden dauern</translation>
    </message>
    <message>
        <source>Set Threshold</source>
        <translation>Schwelle einstellen</translation>
    </message>
    <message>
        <source>Threshold</source>
        <translation>Schwelle</translation>
    </message>
    <message>
        <source>Gain</source>
        <translation>Verstärkung</translation>
    </message>
    <message>
        <source>Exposure</source>
        <translation>Belichtung</translation>
    </message>
    <message>
        <source>Defect limit</source>
        <translation>Höchstzahl der Defekte</translation>
    </message>
    <message>
        <source>Changes will only take effect when the detection is started.
Note that &quot;Start detection&quot; switches off auto gain and auto exposure.</source>
        <translation>Änderungen wirken erst, wenn die Erkennung gestartet wird.
&quot;Erkennung starten&quot; schaltet die automatische Verstärkung und Belichtung aus.</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Start detection</source>
        <translation>Erkennung starten</translation>
    </message>
</context>
<context>
    <name>WelcomeDialog</name>
    <message>
        <source>Welcome</source>
        <translation>Willkommen</translation>
    </message>
    <message>
        <source>Welcome to
Lorvane</source>
        <translation>Willkommen bei
Lorvane</translation>
    </message>
    <message>
        <source>Let us show you how to get started with
Lorvane.</source>
        <translation>Wir zeigen Ihnen die ersten Schritte mit
Lorvane.</translation>
    </message>
    <message>
        <source>Get started</source>
        <translation>Erste Schritte</translation>
    </message>
    <message>
        <source>No thanks</source>
        <translation>Nein, danke</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
</TS>
