<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru_RU" sourcelanguage="en_US">
<context>
  <name>CertApproverWindowView</name>
  <message>
    <source>$Add certificate$</source>
    <translation>Добавление сертификата</translation>
  </message>
  <message>
    <source>$Description$</source>
    <translation>Для соединения с сервером подключения требуется установить в системе соответствующий сертификат.</translation>
  </message>
  <message>
    <source>$AddressLabel$</source>
    <translation>IP-адрес или имя сервера,&#x20;
к которому выполняется подключение</translation>
  </message>
  <message>
    <source>$Issuer$</source>
    <translation>Издатель</translation>
  </message>
  <message>
    <source>$Subject$</source>
    <translation>Субъект</translation>
  </message>
  <message>
    <source>$Valid$</source>
    <translation>Срок действия сертификата</translation>
  </message>
  <message>
    <source>$Fingerprint$</source>
    <translation>Отпечаток сертификата</translation>
  </message>
  <message>
    <source>$Warning$</source>
    <translation>Установка неизвестного сертификата представляет риск информационной безопасности. Перед добавлением сертификата убедитесь в идентичности отпечатка этого сертификата. Если вы не проверили подлинность сертификата по его отпечатку, вы принимаете на себя риск информационной безопасности вашего рабочего места и вашей организации.</translation>
  </message>
  <message>
    <source>$Approve$</source>
    <translation>Добавить сертификат</translation>
  </message>
  <message>
    <source>$Cancel$</source>
    <translation>Отмена</translation>
  </message>
</context>
<context>
  <name>cert_approver::ui::CertApproverWindowView</name>
  <message>
    <source>dd.MM.yyyy</source>
    <translation>dd.MM.yyyy</translation>
  </message>
  <message>
    <source>hh:mm</source>
    <translation>hh:mm</translation>
  </message>
</context>
</TS>
