<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it" sourcelanguage="en">
<context>
    <name>OnScreenKeyboard</name>
    <message>
        <source>The screen is small: keys are only %1 mm.</source>
        <translation>Schermo piccolo: tasti di soli %1 mm.</translation>
    </message>
    <message>
        <source>Enter a number.</source>
        <translation>Inserire un numero.</translation>
    </message>
    <message>
        <source>This is not a number.</source>
        <translation>Non è un numero.</translation>
    </message>
    <message>
        <source>Only whole numbers are possible.</source>
        <translation>Sono ammessi solo numeri interi.</translation>
    </message>
    <message>
        <source>Digits after the point: %1 at most.</source>
        <translation>Decimali: al massimo %1.</translation>
    </message>
    <message>
        <source>Too many digits.</source>
        <translation>Troppe cifre.</translation>
    </message>
    <message>
        <source>Too small: the smallest value is %1.</source>
        <translation>Troppo piccolo: il minimo è %1.</translation>
    </message>
    <message>
        <source>Too large: the largest value is %1.</source>
        <translation>Troppo grande: il massimo è %1.</translation>
    </message>
    <message>
        <source>Too long: the greatest length is %1.</source>
        <translation>Troppo lungo: massimo %1 caratteri.</translation>
    </message>
    <message>
        <source>No value is possible: the limits are %1 to %2.</source>
        <translation>Nessun valore possibile: i limiti sono da %1 a %2.</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Testo</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Valore</translation>
    </message>
    <message>
        <source>Old: %1</source>
        <translation>Precedente: %1</translation>
    </message>
    <message>
        <source>Length: up to %1</source>
        <translation>Lunghezza: fino a %1</translation>
    </message>
    <message>
        <source>Min: %1</source>
        <translation>Min: %1</translation>
    </message>
    <message>
        <source>Max: %1</source>
        <translation>Max: %1</translation>
    </message>
    <message>
        <source>CLR</source>
        <comment>key that clears the whole entry, three letters</comment>
        <translation>CLR</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
    </message>
</context>
<context>
    <name>PanelSession</name>
    <message>
        <source>Changes that are not saved were not sent.</source>
        <translation>Le modifiche non salvate non sono state inviate.</translation>
    </message>
</context>
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>&amp;Yes</source>
        <translation>Sì</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>No</translation>
    </message>
</context>
<context>
    <name>RecipeTransfer</name>
    <message>
        <source>%1 Nothing was sent.</source>
        <translation>%1 Non è stato inviato nulla.</translation>
    </message>
    <message>
        <source>Recipes are being added or deleted; try again in a moment.</source>
        <translation>Aggiunta o eliminazione di ricette in corso; riprovare tra un momento.</translation>
    </message>
    <message>
        <source>No plug-in that is loaded can load recipes.</source>
        <translation>Nessun plug-in caricato può leggere le ricette.</translation>
    </message>
    <message>
        <source>No recipe is selected.</source>
        <translation>Nessuna ricetta selezionata.</translation>
    </message>
    <message>
        <source>It is not known of which group the recipe is; tap the recipe.</source>
        <translation>Non è noto a quale gruppo appartenga la ricetta; toccare la ricetta.</translation>
    </message>
    <message>
        <source>Group %1 cannot be read from the recipe file.</source>
        <translation>Impossibile leggere il gruppo %1 dal file delle ricette.</translation>
    </message>
    <message>
        <source>Group %1 has no items.</source>
        <translation>Il gruppo %1 non ha voci.</translation>
    </message>
    <message>
        <source>Group %1 has no recipe %2.</source>
        <translation>Il gruppo %1 non ha la ricetta %2.</translation>
    </message>
    <message>
        <source>Recipe %1</source>
        <translation>Ricetta %1</translation>
    </message>
    <message>
        <source>Item %1</source>
        <translation>Voce %1</translation>
    </message>
    <message>
        <source>%1 has no value.</source>
        <translation>%1 non ha un valore.</translation>
    </message>
    <message>
        <source>The recipe file holds &quot;%1&quot; more than once.</source>
        <translation>Il file delle ricette contiene «%1» più volte.</translation>
    </message>
    <message>
        <source>%1 has the data type %2, which is not known.</source>
        <translation>%1 ha il tipo di dati %2, che è sconosciuto.</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is not a number.</source>
        <translation>%1: «%2» non è un numero.</translation>
    </message>
    <message>
        <source>%1: %2 has too many decimals.</source>
        <translation>%1: %2 ha troppi decimali.</translation>
    </message>
    <message>
        <source>%1: %2 does not fit into its register.</source>
        <translation>%1: %2 non entra nel suo registro.</translation>
    </message>
    <message>
        <source>%1: the text &quot;%2&quot; is longer than %3 bytes.</source>
        <translation>%1: il testo «%2» supera %3 byte.</translation>
    </message>
    <message>
        <source>%1 has no room among the registers of the recipe.</source>
        <translation>%1 non ha posto tra i registri della ricetta.</translation>
    </message>
    <message>
        <source>Notification</source>
        <translation>Notifica</translation>
    </message>
    <message>
        <source>%1 has no register address.</source>
        <translation>%1 non ha un indirizzo di registro.</translation>
    </message>
    <message>
        <source>%1: there is no link to &quot;%2&quot;.</source>
        <translation>%1: non c&apos;è un collegamento con «%2».</translation>
    </message>
    <message>
        <source>The link to &quot;%1&quot; is down.</source>
        <translation>Il collegamento con «%1» è interrotto.</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; has no register %3 %4.</source>
        <translation>%1: «%2» non ha il registro %3 %4.</translation>
    </message>
    <message>
        <source>%1 and %2 share the register %3 %4.</source>
        <translation>%1 e %2 condividono il registro %3 %4.</translation>
    </message>
    <message>
        <source>The controller does not answer.</source>
        <translation>Il controllore non risponde.</translation>
    </message>
    <message>
        <source>Sent to the controller: %1</source>
        <translation>Inviato al controllore: %1</translation>
    </message>
</context>
<context>
    <name>RegisterModel</name>
    <message>
        <source>Selected group</source>
        <translation>Gruppo selezionato</translation>
    </message>
    <message>
        <source>Selected recipe</source>
        <translation>Ricetta selezionata</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nome</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Tipo</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Indirizzo</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Valore</translation>
    </message>
</context>
<context>
    <name>RegisterView</name>
    <message>
        <source>A register needs a type, such as LW.</source>
        <translation>Un registro deve avere un tipo, ad esempio LW.</translation>
    </message>
    <message>
        <source>%1 %2 cannot be written.</source>
        <translation>Impossibile scrivere in %1 %2.</translation>
    </message>
    <message>
        <source>Watch</source>
        <translation>Osserva</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Rimuovi</translation>
    </message>
</context>
<context>
    <name>TransferBox</name>
    <message>
        <source>Send to controller (F9)</source>
        <translation>Invia al controllore (F9)</translation>
    </message>
    <message>
        <source>Link to %1</source>
        <translation>Collegamento con %1</translation>
    </message>
</context>
</TS>
