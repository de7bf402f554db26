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
</TS>
