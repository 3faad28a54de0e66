<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US" sourcelanguage="en_US">
<context>
  <name>CertApproverWindowView</name>
  <message>
    <source>$Add certificate$</source>
    <translation>Add certificate</translation>
  </message>
  <message>
    <source>$Description$</source>
    <translation>To connect to the connection server, you must install the corresponding certificate in the system.</translation>
  </message>
  <message>
    <source>$AddressLabel$</source>
    <translation>IP address or name of the server
you are connecting to</translation>
  </message>
  <message>
    <source>$Issuer$</source>
    <translation>Issuer name</translation>
  </message>
  <message>
    <source>$Subject$</source>
    <translation>Subject name</translation>
  </message>
  <message>
    <source>$Valid$</source>
    <translation>Certificate validity</translation>
  </message>
  <message>
    <source>$Fingerprint$</source>
    <translation>Certificate fingerprint</translation>
  </message>
  <message>
    <source>$Warning$</source>
    <translation>Installation of an unknown certificate could create an information security risk. Verify the fingerprint before adding the certificate. If you do not use the fingerprint to verify the authenticity of the certificate, you assume the resulting information security risk to your workstation and your organization.</translation>
  </message>
  <message>
    <source>$Approve$</source>
    <translation>Add certificate</translation>
  </message>
  <message>
    <source>$Cancel$</source>
    <translation>Cancel</translation>
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
