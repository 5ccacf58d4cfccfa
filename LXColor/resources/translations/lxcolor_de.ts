<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>ChromaticityDiagram</name>
    <message>
        <source>Requested</source>
        <translation>Gewünscht</translation>
    </message>
    <message>
        <source>Achieved</source>
        <translation>Erreicht</translation>
    </message>
    <message>
        <source>Blackbody</source>
        <translation>Schwarzer Strahler</translation>
    </message>
    <message>
        <source>Daylight</source>
        <translation>Tageslicht</translation>
    </message>
    <message>
        <source>CCT and tint</source>
        <translation>Farbtemperatur und Farbstich</translation>
    </message>
    <message>
        <source>%1 K</source>
        <translation>%1 K</translation>
    </message>
    <message>
        <source>%1 nm</source>
        <translation>%1 nm</translation>
    </message>
</context>
<context>
    <name>DocumentChecker</name>
    <message>
        <source>The list has no colours.</source>
        <translation>Die Liste hat keine Farben.</translation>
    </message>
    <message>
        <source>A colour that is not directly inside a list is ignored.</source>
        <translation>Eine Farbe, die nicht unmittelbar in einer Liste steht, wird nicht gelesen.</translation>
    </message>
    <message>
        <source>The list has no name.</source>
        <translation>Die Liste hat keinen Namen.</translation>
    </message>
    <message>
        <source>The colour has no name and is called %1.</source>
        <translation>Die Farbe hat keinen Namen und heißt dann %1.</translation>
    </message>
    <message>
        <source>The colour has no uid.</source>
        <translation>Die Farbe hat keine uid.</translation>
    </message>
    <message>
        <source>The colour has no value and is left out.</source>
        <translation>Die Farbe hat keinen Wert und entfällt.</translation>
    </message>
    <message>
        <source>The value is too long to be checked.</source>
        <translation>Der Wert ist zu lang, um geprüft zu werden.</translation>
    </message>
    <message>
        <source>%1 is no colour and is left out.</source>
        <translation>%1 ist keine Farbe und entfällt.</translation>
    </message>
    <message>
        <source>%1 is read as %2.</source>
        <translation>%1 wird als %2 gelesen.</translation>
    </message>
    <message>
        <source>The intensity is not from 0 to 1, or a value is not finite.</source>
        <translation>Die Intensität liegt nicht zwischen 0 und 1, oder ein Wert ist nicht endlich.</translation>
    </message>
    <message>
        <source>No fixture has the profile %1.</source>
        <translation>Kein Scheinwerfer hat das Profil %1.</translation>
    </message>
    <message>
        <source>The colour has %1 levels, but its layout %2 channels.</source>
        <translation>Die Farbe hat %1 Pegel, ihr Kanalaufbau aber %2 Kanäle.</translation>
    </message>
    <message>
        <source>The uid %1 is that of a colour of line %2, which is left out.</source>
        <translation>Die uid %1 hat schon eine Farbe in Zeile %2, die damit entfällt.</translation>
    </message>
    <message>
        <source>The uid %1 is that of a colour of line %2: it finds only one of them.</source>
        <translation>Die uid %1 hat schon eine Farbe in Zeile %2: Über sie wird nur eine davon gefunden.</translation>
    </message>
    <message>
        <source>Elements are nested too deeply: nothing of the file is read.</source>
        <translation>Elemente sind zu tief geschachtelt: Von der Datei wird nichts gelesen.</translation>
    </message>
    <message>
        <source>Entities are declared, or the document type declaration is long: nothing of the file is read.</source>
        <translation>Entitäten sind deklariert, oder die Dokumenttyp-Deklaration ist lang: Von der Datei wird nichts gelesen.</translation>
    </message>
    <message>
        <source>Not well-formed, nothing of the file is read: %1</source>
        <translation>Nicht wohlgeformt, von der Datei wird nichts gelesen: %1</translation>
    </message>
    <message>
        <source>There is nothing in it that the library reads.</source>
        <translation>Darin ist nichts, was die Bibliothek liest.</translation>
    </message>
    <message>
        <source>There is no list in it.</source>
        <translation>Darin ist keine Liste.</translation>
    </message>
    <message>
        <source>The file is larger than %1 MiB and is not read.</source>
        <translation>Die Datei ist größer als %1 MiB und wird nicht gelesen.</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>Die Datei ist leer.</translation>
    </message>
    <message>
        <source>There is too much between two tags: nothing of the file is read.</source>
        <translation>Zwischen zwei Tags steht zu viel: Von der Datei wird nichts gelesen.</translation>
    </message>
    <message>
        <source>There are too many lists or colours: nothing of the file is read.</source>
        <translation>Es gibt zu viele Listen oder Farben: Von der Datei wird nichts gelesen.</translation>
    </message>
    <message>
        <source>An element has too many attributes: nothing of the file is read.</source>
        <translation>Ein Element hat zu viele Attribute: Von der Datei wird nichts gelesen.</translation>
    </message>
    <message>
        <source>A channel outside a profile is ignored.</source>
        <translation>Ein Kanal außerhalb eines Profils wird nicht gelesen.</translation>
    </message>
    <message>
        <source>%1 has no %2, which counts as 0.</source>
        <translation>%1 hat kein %2, was als 0 zählt.</translation>
    </message>
    <message>
        <source>%1 of %2 is %3, which is no number and counts as 0.</source>
        <translation>%1 von %2 ist %3, was keine Zahl ist und als 0 zählt.</translation>
    </message>
    <message>
        <source>The profile has no name.</source>
        <translation>Das Profil hat keinen Namen.</translation>
    </message>
    <message>
        <source>The channel has no name to be shown.</source>
        <translation>Der Kanal hat keinen Namen, der gezeigt werden könnte.</translation>
    </message>
    <message>
        <source>There is a channel %1 already: it and those after it move up by one.</source>
        <translation>Es gibt schon einen Kanal %1: Er und die danach rücken um einen weiter.</translation>
    </message>
    <message>
        <source>X, Y and Z are 0: the channel gives no light.</source>
        <translation>X, Y und Z sind 0: Der Kanal gibt kein Licht.</translation>
    </message>
    <message>
        <source>X, Y or Z is negative, which no light has.</source>
        <translation>X, Y oder Z ist negativ, was kein Licht hat.</translation>
    </message>
    <message>
        <source>Profile %1 has %2 channels, but its layout %3: those beyond are not used.</source>
        <translation>Profil %1 hat %2 Kanäle, sein Kanalaufbau aber %3: Die weiteren werden nicht verwendet.</translation>
    </message>
    <message>
        <source>Profile %1 replaces that of line %2, which has no effect.</source>
        <translation>Profil %1 ersetzt das aus Zeile %2, das damit wirkungslos ist.</translation>
    </message>
    <message>
        <source>Profile %1 is rejected: red, green and blue are needed, but it has %2 channels.</source>
        <translation>Profil %1 wird abgelehnt: Nötig sind Rot, Grün und Blau, es hat aber %2 Kanäle.</translation>
    </message>
    <message>
        <source>Profile %1 is rejected: it has %2 channels, but its layout %3.</source>
        <translation>Profil %1 wird abgelehnt: Es hat %2 Kanäle, sein Kanalaufbau aber %3.</translation>
    </message>
    <message>
        <source>Elements are nested too deeply: nothing is read from here on.</source>
        <translation>Elemente sind zu tief geschachtelt: Ab hier wird nichts gelesen.</translation>
    </message>
    <message>
        <source>Entities are declared: nothing is read from here on.</source>
        <translation>Entitäten sind deklariert: Ab hier wird nichts gelesen.</translation>
    </message>
    <message>
        <source>Profile %1 is not from -1 to 10: nothing is read from here on.</source>
        <translation>Profil %1 liegt nicht zwischen -1 und 10: Ab hier wird nichts gelesen.</translation>
    </message>
    <message>
        <source>Profile %1 is rejected: this one begins inside it.</source>
        <translation>Profil %1 wird abgelehnt: Dieses hier beginnt darin.</translation>
    </message>
    <message>
        <source>Profile %1 is rejected: the channel&apos;s index does not follow the %2 before it.</source>
        <translation>Profil %1 wird abgelehnt: Der Index des Kanals schließt nicht an die %2 davor an.</translation>
    </message>
    <message>
        <source>Profile %1 is rejected: it has more than %2 channels.</source>
        <translation>Profil %1 wird abgelehnt: Es hat mehr als %2 Kanäle.</translation>
    </message>
    <message>
        <source>Profile %1 is rejected: X, Y and Z, or their sum, are not finite.</source>
        <translation>Profil %1 wird abgelehnt: X, Y und Z oder ihre Summe sind nicht endlich.</translation>
    </message>
    <message>
        <source>Not well-formed, nothing is read from here on: %1.</source>
        <translation>Nicht wohlgeformt, ab hier wird nichts gelesen: %1.</translation>
    </message>
    <message>
        <source>There is no profile in it.</source>
        <translation>Darin ist kein Profil.</translation>
    </message>
    <message>
        <source>Not well-formed, although the library reads it: %1</source>
        <translation>Nicht wohlgeformt, auch wenn die Bibliothek es liest: %1</translation>
    </message>
    <message>
        <source>The encoding %1 is not known, or the text is in another one.</source>
        <translation>Die Kodierung %1 ist nicht bekannt, oder der Text hat eine andere.</translation>
    </message>
    <message>
        <source>The chromaticity %1, %2 is outside the spectral locus.</source>
        <translation>Der Farbort %1, %2 liegt außerhalb des Spektralfarbenzugs.</translation>
    </message>
    <message>
        <source>%1 has an attribute %2, which is ignored.</source>
        <translation>%1 hat ein Attribut %2, das nicht gelesen wird.</translation>
    </message>
    <message>
        <source>The element %1 is ignored.</source>
        <translation>Das Element %1 wird nicht gelesen.</translation>
    </message>
    <message>
        <source>%1 more findings are not listed.</source>
        <translation>%1 weitere Befunde sind nicht aufgeführt.</translation>
    </message>
    <message>
        <source>The database is too long: nothing is read from here on.</source>
        <translation>Die Datenbank ist zu lang: Ab hier wird nichts gelesen.</translation>
    </message>
    <message>
        <source>No text in the encoding of the document, or a control character: it is read as another.</source>
        <translation>Kein Text in der Kodierung des Dokuments oder ein Steuerzeichen: Gelesen wird etwas anderes.</translation>
    </message>
    <message>
        <source>The list has no isUserLibrary and is loaded as a preset list.</source>
        <translation>Der Liste fehlt isUserLibrary; sie wird als Vorgabenliste geladen.</translation>
    </message>
    <message>
        <source>isUserLibrary is %1, which is no number: the list is loaded as a preset list.</source>
        <translation>isUserLibrary ist %1 und damit keine Zahl: Die Liste wird als Vorgabenliste geladen.</translation>
    </message>
    <message>
        <source>So many colours: uids are not compared from here on.</source>
        <translation>Sehr viele Farben: Ab hier werden die uids nicht mehr verglichen.</translation>
    </message>
    <message>
        <source>So much between two tags: the rest is not checked.</source>
        <translation>Sehr viel zwischen zwei Tags: Der Rest wird nicht geprüft.</translation>
    </message>
</context>
<context>
    <name>FixtureImport</name>
    <message>
        <source>The quotation mark that opens here is not closed</source>
        <translation>Das Anführungszeichen, das hier öffnet, wird nicht geschlossen</translation>
    </message>
    <message>
        <source>There are no fields</source>
        <translation>Es gibt keine Felder</translation>
    </message>
    <message>
        <source>There are more than %1 fields</source>
        <translation>Es gibt mehr als %1 Felder</translation>
    </message>
    <message>
        <source>There are %1 values, which is no multiple of the %2 fields</source>
        <translation>Es gibt %1 Werte, kein Vielfaches der %2 Felder</translation>
    </message>
    <message>
        <source>Only the first table of the file is read.</source>
        <translation>Nur die erste Tabelle der Datei wird gelesen.</translation>
    </message>
    <message>
        <source>The file ends before &quot;%1&quot;</source>
        <translation>Die Datei endet vor &quot;%1&quot;</translation>
    </message>
    <message>
        <source>%1 is %2, but there are %3</source>
        <translation>%1 ist %2, aber es gibt %3</translation>
    </message>
    <message>
        <source>There is no emitter &quot;%1&quot;; there are: %2</source>
        <translation>Es gibt keinen Emitter &quot;%1&quot;; es gibt: %2</translation>
    </message>
    <message>
        <source>The emitter &quot;%1&quot; is stated twice</source>
        <translation>Der Emitter &quot;%1&quot; ist zweimal angegeben</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is taken for %2 by its colour.</source>
        <translation>&quot;%1&quot; gilt seiner Farbe nach als %2.</translation>
    </message>
    <message>
        <source>There is no emitter for %1; there are: %2</source>
        <translation>Es gibt keinen Emitter für %1; es gibt: %2</translation>
    </message>
    <message>
        <source>Not used: %1.</source>
        <translation>Nicht verwendet: %1.</translation>
    </message>
    <message>
        <source>%1 is outside the spectral locus: no light has its chromaticity %2, %3.</source>
        <translation>%1 liegt außerhalb des Spektralfarbenzugs: kein Licht hat den Farbort %2, %3.</translation>
    </message>
    <message>
        <source>%1 has X or Z of 0: colours at its corner of the gamut cannot be matched.</source>
        <translation>%1 hat X oder Z gleich 0: Farben an dieser Ecke des Farbumfangs lassen sich nicht nachbilden.</translation>
    </message>
    <message>
        <source>%1 has no gamut: red, green and blue are needed</source>
        <translation>%1 hat keinen Farbumfang: Rot, Grün und Blau sind nötig</translation>
    </message>
    <message>
        <source>No fixture has the profile %1</source>
        <translation>Kein Scheinwerfer hat das Profil %1</translation>
    </message>
    <message>
        <source>It is no fixture profile database</source>
        <translation>Es ist keine Datenbank mit Scheinwerferprofilen</translation>
    </message>
    <message>
        <source>The place of the profile in it cannot be found</source>
        <translation>Die Stelle des Profils darin ist nicht zu finden</translation>
    </message>
    <message>
        <source>Its root is a profile: put that into an element &quot;Profiles&quot; first</source>
        <translation>Die Wurzel ist ein Profil: setzen Sie es zuerst in ein Element &quot;Profiles&quot;</translation>
    </message>
    <message>
        <source>Not well-formed: %1</source>
        <translation>Nicht wohlgeformt: %1</translation>
    </message>
    <message>
        <source>It is not UTF-8: profiles can be added to UTF-8 text alone</source>
        <translation>Es ist nicht UTF-8: Profile lassen sich nur UTF-8-Text hinzufügen</translation>
    </message>
    <message>
        <source>It has a profile %1 already, in line %2; it is replaced only when that is asked for (--replace)</source>
        <translation>Darin ist in Zeile %2 schon ein Profil %1; es wird nur auf Wunsch ersetzt (--replace)</translation>
    </message>
    <message>
        <source>It has errors, such as in line %1: %2</source>
        <translation>Es hat Fehler, etwa in Zeile %1: %2</translation>
    </message>
    <message>
        <source>The result would have errors, such as in line %1: %2</source>
        <translation>Das Ergebnis hätte Fehler, etwa in Zeile %1: %2</translation>
    </message>
    <message>
        <source>The file is larger than %1 MiB</source>
        <translation>Die Datei ist größer als %1 MiB</translation>
    </message>
    <message>
        <source>The text is not UTF-8, and is read as Windows-1252.</source>
        <translation>Der Text ist nicht UTF-8 und wird als Windows-1252 gelesen.</translation>
    </message>
    <message>
        <source>A unit is stated, but GDTF has units of its own</source>
        <translation>Eine Einheit ist angegeben, aber GDTF hat eigene Einheiten</translation>
    </message>
    <message>
        <source>The archive cannot be read: %1</source>
        <translation>Das Archiv ist nicht lesbar: %1</translation>
    </message>
    <message>
        <source>there is no description.xml in it</source>
        <translation>darin ist keine description.xml</translation>
    </message>
    <message>
        <source>its description.xml is larger than %1 MiB</source>
        <translation>die description.xml ist größer als %1 MiB</translation>
    </message>
    <message>
        <source>This program was built without libzip: unpack the archive and import its description.xml</source>
        <translation>Dieses Programm ist ohne libzip gebaut: entpacken Sie das Archiv und importieren Sie die description.xml</translation>
    </message>
    <message>
        <source>Entities are declared</source>
        <translation>Entitäten sind deklariert</translation>
    </message>
    <message>
        <source>This is no GDTF description: its root is not &quot;GDTF&quot;</source>
        <translation>Das ist keine GDTF-Beschreibung: die Wurzel ist nicht &quot;GDTF&quot;</translation>
    </message>
    <message>
        <source>There are no emitters in the description</source>
        <translation>In der Beschreibung gibt es keine Emitter</translation>
    </message>
    <message>
        <source>Color is &quot;%1&quot;; three numbers x,y,Y are expected</source>
        <translation>Color ist &quot;%1&quot;; drei Zahlen x,y,Y werden erwartet</translation>
    </message>
    <message>
        <source>Physical is %1; a level above 0 and up to 100 percent is expected</source>
        <translation>Physical ist %1; ein Pegel über 0 und bis 100 Prozent wird erwartet</translation>
    </message>
    <message>
        <source>The attribute %1 is missing</source>
        <translation>Das Attribut %1 fehlt</translation>
    </message>
    <message>
        <source>%1 is &quot;%2&quot;, which is no number</source>
        <translation>%1 ist &quot;%2&quot;, und das ist keine Zahl</translation>
    </message>
    <message>
        <source>%1 has no Color and no spectrum: it is taken for light of %2 nm alone.</source>
        <translation>%1 hat weder Color noch Spektrum und gilt als Licht von %2 nm allein.</translation>
    </message>
    <message>
        <source>A tag has too many attributes, or is too long</source>
        <translation>Ein Tag hat zu viele Attribute oder ist zu lang</translation>
    </message>
    <message>
        <source>%1 is left out: no visible colour is given.</source>
        <translation>%1 wird ausgelassen: keine sichtbare Farbe ist angegeben.</translation>
    </message>
    <message>
        <source>%1 is left out: it has no %2 to compare it with the others.</source>
        <translation>%1 wird ausgelassen: %2 fehlt, um es mit den anderen zu vergleichen.</translation>
    </message>
    <message>
        <source>%1 was measured at %2 %, but %3 at %4 %</source>
        <translation>%1 wurde bei %2 % gemessen, aber %3 bei %4 %</translation>
    </message>
    <message>
        <source>The emitters were measured at %1 %: their ratios are taken for those at full.</source>
        <translation>Die Emitter wurden bei %1 % gemessen: ihre Verhältnisse gelten als die bei voller Stärke.</translation>
    </message>
    <message>
        <source>No light has the chromaticity %1, %2</source>
        <translation>Kein Licht hat den Farbort %1, %2</translation>
    </message>
    <message>
        <source>Y has to be above 0, but is %1</source>
        <translation>Y muss über 0 liegen, ist aber %1</translation>
    </message>
    <message>
        <source>%1 gives no light: Y is %2</source>
        <translation>%1 gibt kein Licht: Y ist %2</translation>
    </message>
    <message>
        <source>%1 has a negative X or Z, which no light has</source>
        <translation>%1 hat ein negatives X oder Z, das kein Licht hat</translation>
    </message>
    <message>
        <source>%1: X or Z is a little below 0 and becomes 0.</source>
        <translation>%1: X oder Z liegt etwas unter 0 und wird 0.</translation>
    </message>
    <message>
        <source>A spectrum needs two samples or more, at wavelengths that differ</source>
        <translation>Ein Spektrum braucht zwei oder mehr Werte bei verschiedenen Wellenlängen</translation>
    </message>
    <message>
        <source>The wavelengths %1 to %2 are none of visible light in nanometres</source>
        <translation>Die Wellenlängen %1 bis %2 sind nicht die von sichtbarem Licht in Nanometern</translation>
    </message>
    <message>
        <source>There are no columns x, y, Y, nor X, Y, Z, nor of wavelengths such as &quot;380 nm&quot;</source>
        <translation>Es gibt keine Spalten x, y, Y, noch X, Y, Z, noch Wellenlängen wie &quot;380 nm&quot;</translation>
    </message>
    <message>
        <source>The unit is &quot;%1&quot;, but &quot;%2&quot; before it</source>
        <translation>Die Einheit ist &quot;%1&quot;, davor aber &quot;%2&quot;</translation>
    </message>
    <message>
        <source>The unit &quot;%1&quot; does not fit; accepted: %2</source>
        <translation>Die Einheit &quot;%1&quot; passt nicht; möglich: %2</translation>
    </message>
    <message>
        <source>The unit is &quot;%1&quot; here, but &quot;%2&quot; elsewhere</source>
        <translation>Die Einheit ist hier &quot;%1&quot;, anderswo aber &quot;%2&quot;</translation>
    </message>
    <message>
        <source>The unit is not stated; accepted: %1</source>
        <translation>Die Einheit ist nicht angegeben; möglich: %1</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: decimal points and decimal commas are mixed</source>
        <translation>&quot;%1&quot;: Dezimalpunkte und Dezimalkommas sind gemischt</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no number</source>
        <translation>&quot;%1&quot; ist keine Zahl</translation>
    </message>
    <message>
        <source>There is no column with the names of emitters; accepted: %1</source>
        <translation>Es gibt keine Spalte mit den Namen der Emitter; möglich: %1</translation>
    </message>
    <message>
        <source>There is a second &quot;%1&quot;</source>
        <translation>Es gibt ein zweites &quot;%1&quot;</translation>
    </message>
    <message>
        <source>The wavelengths have to be in nanometres, and say so: &quot;wavelength (nm)&quot;</source>
        <translation>Die Wellenlängen müssen in Nanometern sein und das sagen: &quot;wavelength (nm)&quot;</translation>
    </message>
    <message>
        <source>There are no measurements below the line of heads</source>
        <translation>Unter der Kopfzeile stehen keine Messungen</translation>
    </message>
    <message>
        <source>The file is empty</source>
        <translation>Die Datei ist leer</translation>
    </message>
    <message>
        <source>X, Y and Z have to be from %1 to %2</source>
        <translation>X, Y und Z müssen von %1 bis %2 reichen</translation>
    </message>
    <message>
        <source>The number of channels stated is %1, that of the fixture %2: %3</source>
        <translation>Die Zahl der angegebenen Kanäle ist %1, die des Scheinwerfers %2: %3</translation>
    </message>
    <message>
        <source>Several emitters may be %1: %2</source>
        <translation>Mehrere Emitter können %1 sein: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be %2: its chromaticity is %3, %4</source>
        <translation>&quot;%1&quot; kann nicht %2 sein: Der Farbort ist %3, %4</translation>
    </message>
    <message>
        <source>Columns that are not used: %1.</source>
        <translation>Nicht verwendete Spalten: %1.</translation>
    </message>
    <message>
        <source>The number of cells in the row is %1, that of heads %2 (numbers with decimal commas need quotation marks, or semicolons between the cells)</source>
        <translation>Die Zahl der Zellen in der Zeile ist %1, die der Spaltenköpfe %2 (Zahlen mit Dezimalkomma brauchen Anführungszeichen, oder Semikolons zwischen den Zellen)</translation>
    </message>
</context>
<context>
    <name>FixturePreview</name>
    <message>
        <source>8 bit</source>
        <translation>8 Bit</translation>
    </message>
    <message>
        <source>16 bit</source>
        <translation>16 Bit</translation>
    </message>
    <message>
        <source>Resolution</source>
        <translation>Auflösung</translation>
    </message>
    <message>
        <source>Match colours</source>
        <translation>Farben angleichen</translation>
    </message>
    <message>
        <source>Without, generic RGB colours go to the fixture as they are.</source>
        <translation>Ohne gehen allgemeine RGB-Farben unverändert an den Scheinwerfer.</translation>
    </message>
    <message>
        <source>&amp;Fixture</source>
        <translation>&amp;Scheinwerfer</translation>
    </message>
    <message>
        <source>IO &amp;mode</source>
        <translation>IO-&amp;Modus</translation>
    </message>
    <message>
        <source>Requested and achieved light</source>
        <translation>Gewünschtes und erreichtes Licht</translation>
    </message>
    <message>
        <source>no light</source>
        <translation>kein Licht</translation>
    </message>
    <message>
        <source>Requested</source>
        <translation>Gewünscht</translation>
    </message>
    <message>
        <source>Achieved</source>
        <translation>Erreicht</translation>
    </message>
    <message>
        <source>Emitter levels and DMX bytes</source>
        <translation>Pegel der Emitter und DMX-Bytes</translation>
    </message>
</context>
<context>
    <name>FrameRenderer</name>
    <message>
        <source>Fixture %1: there is no profile %2.</source>
        <translation>Scheinwerfer %1: Es gibt kein Profil %2.</translation>
    </message>
    <message>
        <source>Fixture %1: there is no IO mode %2.</source>
        <translation>Scheinwerfer %1: Es gibt keinen IO-Modus %2.</translation>
    </message>
    <message>
        <source>Fixture %1: universe %2 is not in 1 to %3.</source>
        <translation>Scheinwerfer %1: Universum %2 liegt nicht zwischen 1 und %3.</translation>
    </message>
    <message>
        <source>Fixture %1 has %2 channels; 1 to %3 are possible.</source>
        <translation>Scheinwerfer %1 hat %2 Kanäle; möglich sind 1 bis %3.</translation>
    </message>
    <message>
        <source>Fixture %1: slot %2 of universe %3 is not in 1 to %4.</source>
        <translation>Scheinwerfer %1: Slot %2 von Universum %3 liegt nicht zwischen 1 und %4.</translation>
    </message>
    <message>
        <source>Fixture %1: slot %2 of universe %3 is taken by fixture %4.</source>
        <translation>Scheinwerfer %1: Slot %2 von Universum %3 ist von Scheinwerfer %4 belegt.</translation>
    </message>
</context>
<context>
    <name>LXColorLibrary</name>
    <message>
        <source>Swatches</source>
        <translation>Farbfelder</translation>
    </message>
    <message>
        <source>Color ID</source>
        <translation>Farb-ID</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Swatches</source>
        <translation>Farbfelder</translation>
    </message>
    <message>
        <source>Project documents (*.xml);;All files (*)</source>
        <translation>Projektdateien (*.xml);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>Ö&amp;ffnen …</translation>
    </message>
    <message>
        <source>&amp;Add to Swatches</source>
        <translation>Zu Farbfeldern &amp;hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Replace Swatch</source>
        <translation>Farbfeld &amp;ersetzen</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>Speichern &amp;unter …</translation>
    </message>
    <message>
        <source>White Light</source>
        <translation>Weißlicht</translation>
    </message>
    <message>
        <source>On the Fixture</source>
        <translation>Am Scheinwerfer</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Colour</source>
        <translation>&amp;Farbe</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Hell</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Dunkel</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>&amp;Über das Programm</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>%1 K</source>
        <translation>%1 K</translation>
    </message>
    <message>
        <source>%1, tint %2 %</source>
        <translation>%1, Farbstich %2 %</translation>
    </message>
    <message>
        <source>There is no list that can be changed.</source>
        <translation>Es gibt keine Liste, die geändert werden kann.</translation>
    </message>
    <message>
        <source>Choose a swatch that can be changed.</source>
        <translation>Wählen Sie ein Farbfeld, das geändert werden kann.</translation>
    </message>
    <message>
        <source>Open Project</source>
        <translation>Projekt öffnen</translation>
    </message>
    <message>
        <source>Save Project</source>
        <translation>Projekt speichern</translation>
    </message>
    <message>
        <source>Show.xml</source>
        <translation>Show.xml</translation>
    </message>
    <message>
        <source>Saved.</source>
        <translation>Gespeichert.</translation>
    </message>
    <message>
        <source>The project&apos;s swatches have changed. Do you want to save them?</source>
        <translation>Die Farbfelder des Projekts wurden geändert. Möchten Sie sie speichern?</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Unbenannt</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>&lt;h3&gt;%1 %2&lt;/h3&gt;&lt;p&gt;Colours for LED fixtures: keep them, pick white light, and see what a fixture makes of them.&lt;/p&gt;</source>
        <translation>&lt;h3&gt;%1 %2&lt;/h3&gt;&lt;p&gt;Farben für LED-Scheinwerfer: verwalten, Weißlicht wählen und sehen, was ein Scheinwerfer daraus macht.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Project documents and palettes (%1);;All files (*)</source>
        <translation>Projektdateien und Paletten (%1);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Another program has changed “%1” since it was opened. Do you want to replace it?</source>
        <translation>Ein anderes Programm hat „%1“ geändert, seit die Datei geöffnet wurde. Möchten Sie sie ersetzen?</translation>
    </message>
</context>
<context>
    <name>MatchReport</name>
    <message>
        <source>Intensity</source>
        <translation>Intensität</translation>
    </message>
    <message>
        <source>Channel %1</source>
        <translation>Kanal %1</translation>
    </message>
    <message>
        <source>the red-green edge</source>
        <translation>die Rot-Grün-Kante</translation>
    </message>
    <message>
        <source>the green-blue edge</source>
        <translation>die Grün-Blau-Kante</translation>
    </message>
    <message>
        <source>the blue-red edge</source>
        <translation>die Blau-Rot-Kante</translation>
    </message>
    <message>
        <source>the red corner</source>
        <translation>die rote Ecke</translation>
    </message>
    <message>
        <source>the green corner</source>
        <translation>die grüne Ecke</translation>
    </message>
    <message>
        <source>the blue corner</source>
        <translation>die blaue Ecke</translation>
    </message>
    <message>
        <source>the gamut</source>
        <translation>den Farbraum</translation>
    </message>
    <message>
        <source>an unknown distance</source>
        <translation>unbekannt</translation>
    </message>
    <message>
        <source>less than 0.0005 u&apos;v&apos;</source>
        <translation>kleiner als 0.0005 u&apos;v&apos;</translation>
    </message>
    <message>
        <source>%1 u&apos;v&apos;</source>
        <translation>%1 u&apos;v&apos;</translation>
    </message>
    <message>
        <source>Too dim for 16 bits: %1 stays dark.</source>
        <translation>Zu dunkel für 16 Bit: %1 bleibt dunkel.</translation>
    </message>
    <message>
        <source>Too dim for 8 bits: %1 stays dark.</source>
        <translation>Zu dunkel für 8 Bit: %1 bleibt dunkel.</translation>
    </message>
    <message>
        <source>Single channel: %1 at %2 % of its light, without a colour of its own.</source>
        <translation>Einzelkanal: %1 mit %2 % seines Lichts, ohne eigene Farbe.</translation>
    </message>
    <message>
        <source>Not a colour: %1 stays dark.</source>
        <translation>Keine Farbe: %1 bleibt dunkel.</translation>
    </message>
    <message>
        <source>A colour whose values are not numbers: there is nothing to match on %1.</source>
        <translation>Eine Farbe, deren Werte keine Zahlen sind: Für %1 gibt es nichts zu treffen.</translation>
    </message>
    <message>
        <source>Black: %1 stays dark.</source>
        <translation>Schwarz: %1 bleibt dunkel.</translation>
    </message>
    <message>
        <source>No mix of the emitters of %1 was found for this colour: it stays dark.</source>
        <translation>Für diese Farbe wurde keine Mischung der Emitter von %1 gefunden: Er bleibt dunkel.</translation>
    </message>
    <message>
        <source>Single channel: this colour has no level for %1, which stays dark.</source>
        <translation>Einzelkanal: Diese Farbe hat keinen Pegel für %1, der dunkel bleibt.</translation>
    </message>
    <message>
        <source>Passed through to %1 as it is: %2 from the light that the colour means.</source>
        <translation>Unverändert an %1 durchgereicht; Abweichung vom Licht, das die Farbe meint: %2.</translation>
    </message>
    <message>
        <source>Inside the gamut of %1: matched, %2 off.</source>
        <translation>Innerhalb des Farbraums von %1: getroffen, Abweichung %2.</translation>
    </message>
    <message>
        <source>Outside the gamut of %1: moved %2 to %3.</source>
        <translation>Außerhalb des Farbraums von %1: auf %3 verschoben, Abstand %2.</translation>
    </message>
</context>
<context>
    <name>PaletteFormat</name>
    <message>
        <source>The file ends, or a part of it, where %1 more bytes are expected</source>
        <translation>Die Datei oder ein Teil von ihr endet, wo %1 weitere Bytes erwartet werden</translation>
    </message>
    <message>
        <source>A number is infinite or not a number</source>
        <translation>Eine Zahl ist unendlich oder keine Zahl</translation>
    </message>
    <message>
        <source>A name is longer than what is left of the file, or of its part</source>
        <translation>Ein Name ist länger als der Rest der Datei oder ihres Teils</translation>
    </message>
    <message>
        <source>The row has more than %1 cells</source>
        <translation>Die Zeile hat mehr als %1 Zellen</translation>
    </message>
    <message>
        <source>The quotation mark that opens here is not closed</source>
        <translation>Das Anführungszeichen, das hier öffnet, wird nicht geschlossen</translation>
    </message>
    <message>
        <source>There is text behind the closing quotation mark</source>
        <translation>Hinter dem schließenden Anführungszeichen steht Text</translation>
    </message>
    <message>
        <source>This is no such palette: it begins with neither version 1 nor 2</source>
        <translation>Das ist keine solche Palette: sie beginnt weder mit Version 1 noch 2</translation>
    </message>
    <message>
        <source>A section of version 2 is expected here</source>
        <translation>Hier wird ein Abschnitt der Version 2 erwartet</translation>
    </message>
    <message>
        <source>There are %1 colours, but this format holds %2 at most</source>
        <translation>Es sind %1 Farben, aber dieses Format fasst höchstens %2</translation>
    </message>
    <message>
        <source>A group begins within another one</source>
        <translation>Eine Gruppe beginnt in einer anderen</translation>
    </message>
    <message>
        <source>A group ends that has not begun</source>
        <translation>Eine Gruppe endet, die nicht begonnen hat</translation>
    </message>
    <message>
        <source>The last group has no end</source>
        <translation>Die letzte Gruppe hat kein Ende</translation>
    </message>
    <message>
        <source>This is no such palette: it does not begin with &quot;%1&quot;</source>
        <translation>Das ist keine solche Palette: sie beginnt nicht mit &quot;%1&quot;</translation>
    </message>
    <message>
        <source>Version %1.%2 is not known</source>
        <translation>Version %1.%2 ist unbekannt</translation>
    </message>
    <message>
        <source>There are more than %1 lists</source>
        <translation>Es sind mehr als %1 Listen</translation>
    </message>
    <message>
        <source>There are more than %1 colours</source>
        <translation>Es sind mehr als %1 Farben</translation>
    </message>
    <message>
        <source>The block that opens here is not closed</source>
        <translation>Der Block, der hier öffnet, wird nicht geschlossen</translation>
    </message>
    <message>
        <source>A block is closed that was not opened</source>
        <translation>Ein Block wird geschlossen, der nicht geöffnet wurde</translation>
    </message>
    <message>
        <source>The comment that opens here is not closed</source>
        <translation>Der Kommentar, der hier öffnet, wird nicht geschlossen</translation>
    </message>
    <message>
        <source>&quot;#&quot; and 3, 4, 6 or 8 hexadecimal digits are expected</source>
        <translation>&quot;#&quot; und 3, 4, 6 oder 8 Hexadezimalziffern werden erwartet</translation>
    </message>
    <message>
        <source>Red, green, blue and perhaps alpha are expected</source>
        <translation>Rot, Grün, Blau und gegebenenfalls Alpha werden erwartet</translation>
    </message>
    <message>
        <source>The file is empty</source>
        <translation>Die Datei ist leer</translation>
    </message>
    <message>
        <source>There is a second column &quot;%1&quot;</source>
        <translation>Es gibt eine zweite Spalte &quot;%1&quot;</translation>
    </message>
    <message>
        <source>The line of heads has neither &quot;value&quot; nor &quot;red&quot;, &quot;green&quot; and &quot;blue&quot;</source>
        <translation>Die Kopfzeile hat weder &quot;value&quot; noch &quot;red&quot;, &quot;green&quot; und &quot;blue&quot;</translation>
    </message>
    <message>
        <source>A number from 0 to 255 is expected</source>
        <translation>Eine Zahl von 0 bis 255 wird erwartet</translation>
    </message>
    <message>
        <source>Elements are nested too deeply</source>
        <translation>Elemente sind zu tief verschachtelt</translation>
    </message>
    <message>
        <source>There are too many lists or colours</source>
        <translation>Es sind zu viele Listen oder Farben</translation>
    </message>
    <message>
        <source>Entities are declared, or the document type declaration is long</source>
        <translation>Entitäten sind deklariert, oder die Dokumenttyp-Deklaration ist lang</translation>
    </message>
    <message>
        <source>Not well-formed: %1</source>
        <translation>Nicht wohlgeformt: %1</translation>
    </message>
    <message>
        <source>A tag has too many attributes, or is too long</source>
        <translation>Ein Tag hat zu viele Attribute oder ist zu lang</translation>
    </message>
    <message>
        <source>The file is larger than %1 MiB</source>
        <translation>Die Datei ist größer als %1 MiB</translation>
    </message>
    <message>
        <source>This is no such palette: the first line is not &quot;%1&quot;</source>
        <translation>Das ist keine solche Palette: die erste Zeile ist nicht &quot;%1&quot;</translation>
    </message>
    <message>
        <source>Red, green and blue are expected, but the line ends</source>
        <translation>Rot, Grün und Blau werden erwartet, aber die Zeile endet</translation>
    </message>
    <message>
        <source>1 colour loses its alpha.</source>
        <translation>1 Farbe verliert ihr Alpha.</translation>
    </message>
    <message>
        <source>%1 colours lose their alpha.</source>
        <translation>%1 Farben verlieren ihr Alpha.</translation>
    </message>
    <message>
        <source>1 colour that is not red, green and blue becomes so.</source>
        <translation>1 Farbe, die nicht aus Rot, Grün und Blau besteht, wird dazu.</translation>
    </message>
    <message>
        <source>%1 colours that are not red, green and blue become so.</source>
        <translation>%1 Farben, die nicht aus Rot, Grün und Blau bestehen, werden dazu.</translation>
    </message>
    <message>
        <source>1 colour loses its fixture profile.</source>
        <translation>1 Farbe verliert ihr Scheinwerferprofil.</translation>
    </message>
    <message>
        <source>%1 colours lose their fixture profile.</source>
        <translation>%1 Farben verlieren ihr Scheinwerferprofil.</translation>
    </message>
    <message>
        <source>1 colour loses its uid.</source>
        <translation>1 Farbe verliert ihre uid.</translation>
    </message>
    <message>
        <source>%1 colours lose their uid.</source>
        <translation>%1 Farben verlieren ihre uid.</translation>
    </message>
    <message>
        <source>1 colour loses the preset that it came from.</source>
        <translation>1 Farbe verliert das Preset, aus dem sie kam.</translation>
    </message>
    <message>
        <source>%1 colours lose the preset that they came from.</source>
        <translation>%1 Farben verlieren das Preset, aus dem sie kamen.</translation>
    </message>
    <message>
        <source>1 colour loses its vendor&apos;s name.</source>
        <translation>1 Farbe verliert den Namen des Herstellers.</translation>
    </message>
    <message>
        <source>%1 colours lose their vendor&apos;s name.</source>
        <translation>%1 Farben verlieren den Namen des Herstellers.</translation>
    </message>
    <message>
        <source>1 name has what the format cannot hold, and is changed.</source>
        <translation>1 Name enthält, was das Format nicht fassen kann, und wird geändert.</translation>
    </message>
    <message>
        <source>%1 names have what the format cannot hold, and are changed.</source>
        <translation>%1 Namen enthalten, was das Format nicht fassen kann, und werden geändert.</translation>
    </message>
    <message>
        <source>1 list is joined to another one.</source>
        <translation>1 Liste wird mit einer anderen verbunden.</translation>
    </message>
    <message>
        <source>%1 lists are joined to others.</source>
        <translation>%1 Listen werden mit anderen verbunden.</translation>
    </message>
    <message>
        <source>1 list loses its name.</source>
        <translation>1 Liste verliert ihren Namen.</translation>
    </message>
    <message>
        <source>%1 lists lose their name.</source>
        <translation>%1 Listen verlieren ihren Namen.</translation>
    </message>
    <message>
        <source>1 list without colours is left out.</source>
        <translation>1 Liste ohne Farben wird ausgelassen.</translation>
    </message>
    <message>
        <source>%1 lists without colours are left out.</source>
        <translation>%1 Listen ohne Farben werden ausgelassen.</translation>
    </message>
    <message>
        <source>1 read-only list becomes one that users may edit.</source>
        <translation>1 schreibgeschützte Liste wird zu einer, die Benutzer ändern dürfen.</translation>
    </message>
    <message>
        <source>%1 read-only lists become lists that users may edit.</source>
        <translation>%1 schreibgeschützte Listen werden zu Listen, die Benutzer ändern dürfen.</translation>
    </message>
    <message>
        <source>1 entry is left out: its value is no colour.</source>
        <translation>1 Eintrag wird ausgelassen: sein Wert ist keine Farbe.</translation>
    </message>
    <message>
        <source>%1 entries are left out: their values are no colours.</source>
        <translation>%1 Einträge werden ausgelassen: ihre Werte sind keine Farben.</translation>
    </message>
    <message>
        <source>1 colour is made of inks (CMYK) and read without an ink profile.</source>
        <translation>1 Farbe besteht aus Druckfarben (CMYK) und wird ohne Druckprofil gelesen.</translation>
    </message>
    <message>
        <source>%1 colours are made of inks (CMYK) and read without an ink profile.</source>
        <translation>%1 Farben bestehen aus Druckfarben (CMYK) und werden ohne Druckprofil gelesen.</translation>
    </message>
    <message>
        <source>1 Lab colour becomes red, green and blue of sRGB.</source>
        <translation>1 Lab-Farbe wird zu Rot, Grün und Blau von sRGB.</translation>
    </message>
    <message>
        <source>%1 Lab colours become red, green and blue of sRGB.</source>
        <translation>%1 Lab-Farben werden zu Rot, Grün und Blau von sRGB.</translation>
    </message>
    <message>
        <source>1 colour is beyond sRGB or its range, and is cut.</source>
        <translation>1 Farbe liegt außerhalb von sRGB oder ihres Bereichs und wird beschnitten.</translation>
    </message>
    <message>
        <source>%1 colours are beyond sRGB or their range, and are cut.</source>
        <translation>%1 Farben liegen außerhalb von sRGB oder ihres Bereichs und werden beschnitten.</translation>
    </message>
    <message>
        <source>1 spot colour becomes an ordinary one.</source>
        <translation>1 Schmuckfarbe wird zu einer gewöhnlichen.</translation>
    </message>
    <message>
        <source>%1 spot colours become ordinary ones.</source>
        <translation>%1 Schmuckfarben werden zu gewöhnlichen.</translation>
    </message>
    <message>
        <source>1 colour is left out: its colour space is not known.</source>
        <translation>1 Farbe wird ausgelassen: ihr Farbraum ist unbekannt.</translation>
    </message>
    <message>
        <source>%1 colours are left out: their colour space is not known.</source>
        <translation>%1 Farben werden ausgelassen: ihr Farbraum ist unbekannt.</translation>
    </message>
    <message>
        <source>1 colour was edited beside what is kept of it; docs/palettes.md says what counts.</source>
        <translation>1 Farbe wurde neben dem geändert, was von ihr aufbewahrt ist; docs/palettes.md sagt, was gilt.</translation>
    </message>
    <message>
        <source>%1 colours were edited beside what is kept of them; docs/palettes.md says what counts.</source>
        <translation>%1 Farben wurden neben dem geändert, was von ihnen aufbewahrt ist; docs/palettes.md sagt, was gilt.</translation>
    </message>
    <message>
        <source>1 comment of this program fits no colour or list, and is ignored.</source>
        <translation>1 Kommentar dieses Programms passt zu keiner Farbe oder Liste und wird übergangen.</translation>
    </message>
    <message>
        <source>%1 comments of this program fit no colour or list, and are ignored.</source>
        <translation>%1 Kommentare dieses Programms passen zu keiner Farbe oder Liste und werden übergangen.</translation>
    </message>
    <message>
        <source>1 part of the file is no colour, and is left out.</source>
        <translation>1 Teil der Datei ist keine Farbe und wird ausgelassen.</translation>
    </message>
    <message>
        <source>%1 parts of the file are no colours, and are left out.</source>
        <translation>%1 Teile der Datei sind keine Farben und werden ausgelassen.</translation>
    </message>
    <message>
        <source>The text is not UTF-8, and is read as Windows-1252.</source>
        <translation>Der Text ist nicht UTF-8 und wird als Windows-1252 gelesen.</translation>
    </message>
    <message>
        <source>The number of cells in the row is %1, that of heads %2</source>
        <translation>Die Zahl der Zellen in der Zeile ist %1, die der Spaltenköpfe %2</translation>
    </message>
</context>
<context>
    <name>ProjectDocument</name>
    <message>
        <source>declarations of a document type are not supported</source>
        <translation>Deklarationen eines Dokumenttyps werden nicht unterstützt</translation>
    </message>
    <message>
        <source>entities are not supported</source>
        <translation>Entitäten werden nicht unterstützt</translation>
    </message>
    <message>
        <source>line %1, column %2: %3</source>
        <translation>Zeile %1, Spalte %2: %3</translation>
    </message>
    <message>
        <source>“%1” cannot be read: %2.</source>
        <translation>„%1“ kann nicht gelesen werden: %2.</translation>
    </message>
    <message>
        <source>“%1” is not a project document: %2.</source>
        <translation>„%1“ ist keine Projektdatei: %2.</translation>
    </message>
    <message>
        <source>The library has no list for the colours of a project.</source>
        <translation>Die Bibliothek hat keine Liste für die Farben eines Projekts.</translation>
    </message>
    <message>
        <source>“%1” cannot be saved: %2.</source>
        <translation>„%1“ kann nicht gespeichert werden: %2.</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Linear (Default)</source>
        <translation>Linear (Standard)</translation>
    </message>
    <message>
        <source>Normal (LX Gamma)</source>
        <translation>Normal (LX-Gamma)</translation>
    </message>
    <message>
        <source>Tungsten/Incandescent</source>
        <translation>Halogen/Glühlampe</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>Amber</source>
        <translation>Amber</translation>
    </message>
    <message>
        <source>Mint</source>
        <translation>Mint</translation>
    </message>
    <message>
        <source>White</source>
        <translation>Weiß</translation>
    </message>
    <message>
        <source>RGB In/Out</source>
        <translation>RGB Ein-/Ausgang</translation>
    </message>
    <message>
        <source>RGBA In/Out</source>
        <translation>RGBA Ein-/Ausgang</translation>
    </message>
    <message>
        <source>RGBW In/Out</source>
        <translation>RGBW Ein-/Ausgang</translation>
    </message>
    <message>
        <source>RGBAW In/Out</source>
        <translation>RGBAW Ein-/Ausgang</translation>
    </message>
    <message>
        <source>RGBWW In/Out</source>
        <translation>RGBWW Ein-/Ausgang</translation>
    </message>
    <message>
        <source>RGB In / RGBA Out</source>
        <translation>RGB-Eingang / RGBA-Ausgang</translation>
    </message>
    <message>
        <source>RGB In / RGBW Out</source>
        <translation>RGB-Eingang / RGBW-Ausgang</translation>
    </message>
    <message>
        <source>RGB In / RGBAW Out</source>
        <translation>RGB-Eingang / RGBAW-Ausgang</translation>
    </message>
    <message>
        <source>RGB In / RGBWW Out</source>
        <translation>RGB-Eingang / RGBWW-Ausgang</translation>
    </message>
    <message>
        <source>Single Channel In/Out</source>
        <translation>Einzelkanal Ein-/Ausgang</translation>
    </message>
    <message>
        <source>Generic RGB</source>
        <translation>Allgemeines RGB</translation>
    </message>
    <message>
        <source>Flare/Flash QVS</source>
        <translation>Flare/Flash QVS</translation>
    </message>
    <message>
        <source>PrismaFlow CoveStrip</source>
        <translation>PrismaFlow CoveStrip</translation>
    </message>
    <message>
        <source>Generic RGBW</source>
        <translation>Allgemeines RGBW</translation>
    </message>
    <message>
        <source>Single Channel</source>
        <translation>Einzelkanal</translation>
    </message>
    <message>
        <source>WashLine QP6 RGBA</source>
        <translation>WashLine QP6 RGBA</translation>
    </message>
    <message>
        <source>WashLine QP6 RGBW</source>
        <translation>WashLine QP6 RGBW</translation>
    </message>
    <message>
        <source>PixelNode RGB</source>
        <translation>PixelNode RGB</translation>
    </message>
    <message>
        <source>FloodBar ZN2 RGBA</source>
        <translation>FloodBar ZN2 RGBA</translation>
    </message>
    <message>
        <source>FloodBar ZN2 RGBW</source>
        <translation>FloodBar ZN2 RGBW</translation>
    </message>
    <message>
        <source>Found NULL LXColorLibrary element</source>
        <translation>Leeres LXColorLibrary-Element gefunden</translation>
    </message>
</context>
<context>
    <name>SwatchView</name>
    <message>
        <source>red %1, green %2, blue %3</source>
        <translation>Rot %1, Grün %2, Blau %3</translation>
    </message>
    <message>
        <source>levels %1</source>
        <translation>Pegel %1</translation>
    </message>
    <message>
        <source>colours: %1</source>
        <translation>Farben: %1</translation>
    </message>
    <message>
        <source>Colour ID: %1</source>
        <translation>Farb-ID: %1</translation>
    </message>
    <message>
        <source>From: %1</source>
        <translation>Aus: %1</translation>
    </message>
    <message>
        <source>Search swatches</source>
        <translation>Farbfelder suchen</translation>
    </message>
    <message>
        <source>Shows the colours whose name, or whose list, has every word that you type.</source>
        <translation>Zeigt die Farben, in deren Namen oder Liste jedes eingegebene Wort vorkommt.</translation>
    </message>
    <message>
        <source>Swatches</source>
        <translation>Farbfelder</translation>
    </message>
    <message>
        <source>Lists of colours. F2 renames, Delete removes, Enter uses a colour.</source>
        <translation>Farblisten. F2 benennt um, Entf löscht, die Eingabetaste verwendet eine Farbe.</translation>
    </message>
    <message>
        <source>New &amp;List</source>
        <translation>Neue &amp;Liste</translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation>&amp;Umbenennen</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>&amp;Suchen</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>No swatch is called “%1”.</source>
        <translation>Kein Farbfeld heißt „%1“.</translation>
    </message>
    <message>
        <source>There are no swatches yet.</source>
        <translation>Es gibt noch keine Farbfelder.</translation>
    </message>
    <message>
        <source>New List</source>
        <translation>Neue Liste</translation>
    </message>
    <message>
        <source>There is no colour on the clipboard.</source>
        <translation>In der Zwischenablage ist keine Farbe.</translation>
    </message>
    <message>
        <source>Add swatch</source>
        <translation>Farbfeld hinzufügen</translation>
    </message>
    <message>
        <source>Move List &amp;Up</source>
        <translation>Liste nach &amp;oben</translation>
    </message>
    <message>
        <source>Move List &amp;Down</source>
        <translation>Liste nach &amp;unten</translation>
    </message>
</context>
<context>
    <name>WhitePointPicker</name>
    <message>
        <source>White point on the chromaticity diagram</source>
        <translation>Weißpunkt in der Farbtafel</translation>
    </message>
    <message>
        <source>Towards magenta below 0, towards green above</source>
        <translation>Unter 0 gegen Magenta, darüber gegen Grün</translation>
    </message>
    <message>
        <source>Whole diagram</source>
        <translation>Ganze Farbtafel</translation>
    </message>
    <message>
        <source>&amp;Colour temperature</source>
        <translation>&amp;Farbtemperatur</translation>
    </message>
    <message>
        <source>&amp;Tint</source>
        <translation>Farb&amp;stich</translation>
    </message>
    <message>
        <source>&amp;Intensity</source>
        <translation>&amp;Intensität</translation>
    </message>
    <message>
        <source>%1 has no gamut.</source>
        <translation>%1 hat keinen Farbraum.</translation>
    </message>
    <message>
        <source>Inside the gamut of %1.</source>
        <translation>Innerhalb des Farbraums von %1.</translation>
    </message>
    <message>
        <source>Outside the gamut of %1, by %2 u&apos;v&apos;; nearest is %3.</source>
        <translation>Außerhalb des Farbraums von %1, um %2 u&apos;v&apos;; am nächsten liegt %3.</translation>
    </message>
</context>
<context>
    <name>lxcolor::SwatchEditor</name>
    <message>
        <source>Preset lists and the project&apos;s list stay as they are.</source>
        <translation>Vorgegebene Listen und die des Projekts bleiben, wie sie sind.</translation>
    </message>
    <message>
        <source>Delete swatches</source>
        <translation>Farbfelder löschen</translation>
    </message>
    <message>
        <source>“%1” keeps its name.</source>
        <translation>„%1“ behält den Namen.</translation>
    </message>
    <message>
        <source>There is a “%1” already.</source>
        <translation>„%1“ gibt es schon.</translation>
    </message>
    <message>
        <source>New list</source>
        <translation>Neue Liste</translation>
    </message>
    <message>
        <source>“%1” cannot be changed.</source>
        <translation>„%1“ kann nicht geändert werden.</translation>
    </message>
    <message>
        <source>Add swatches</source>
        <translation>Farbfelder hinzufügen</translation>
    </message>
    <message>
        <source>Move swatches</source>
        <translation>Farbfelder verschieben</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Change colour</source>
        <translation>Farbe ändern</translation>
    </message>
    <message>
        <source>Move list</source>
        <translation>Liste verschieben</translation>
    </message>
</context>
</TS>
