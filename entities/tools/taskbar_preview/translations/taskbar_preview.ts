<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US" sourcelanguage="en_US">
<context>
    <name>language_control</name>
    <message>
        <source>$en-US$</source>
        <translation>EN</translation>
    </message>
    <message>
        <source>$ru-RU$</source>
        <translation>RU</translation>
    </message>
    <message>
        <source>$es-MX$</source>
        <translation>ES</translation>
    </message>
    <message>
        <source>$pt-BR$</source>
        <translation>PT</translation>
    </message>
</context>
</TS>
