#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause

"""Writes the certificates of the tests into this folder, each with its key. Nothing is protected by
these keys. Needs Debian's python3-cryptography."""

import datetime
import ipaddress
import pathlib

from cryptography import x509
from cryptography.hazmat.primitives import hashes, serialization
from cryptography.hazmat.primitives.asymmetric import ec
from cryptography.x509.oid import NameOID

FOLDER = pathlib.Path(__file__).parent
LOCAL = [x509.DNSName("localhost"), x509.IPAddress(ipaddress.ip_address("127.0.0.1"))]


def name(text):
    return x509.Name([x509.NameAttribute(NameOID.COMMON_NAME, text)])


def certificate(subject, names, key, issuer=None, is_authority=False):
    """issuer: its name and key; none: the certificate is its own."""
    issuer_name, issuer_key = issuer or (subject, key)
    builder = (
        x509.CertificateBuilder()
        .subject_name(name(subject))
        .issuer_name(name(issuer_name))
        .public_key(key.public_key())
        .serial_number(x509.random_serial_number())
        .not_valid_before(datetime.datetime(2020, 1, 1))
        .not_valid_after(datetime.datetime(2120, 1, 1))
        .add_extension(x509.BasicConstraints(is_authority, None), critical=True)
    )
    if names:
        builder = builder.add_extension(x509.SubjectAlternativeName(names), critical=False)
    return builder.sign(issuer_key, hashes.SHA256())


def write(file, certificate, key=None):
    pem = certificate.public_bytes(serialization.Encoding.PEM)
    if key:
        pem += key.private_bytes(
            serialization.Encoding.PEM,
            serialization.PrivateFormat.PKCS8,
            serialization.NoEncryption(),
        )
    (FOLDER / file).write_bytes(pem)


def main():
    for file in ("self-signed.pem", "self-signed-anew.pem"):
        key = ec.generate_private_key(ec.SECP256R1())
        write(file, certificate("localhost", LOCAL, key), key)
    authority_key = ec.generate_private_key(ec.SECP256R1())
    authority = ("Test authority", authority_key)
    write("authority.pem", certificate(authority[0], [], authority_key, is_authority=True))
    for file, names in (
        ("issued.pem", LOCAL),
        ("issued-elsewhere.pem", [x509.DNSName("elsewhere.example")]),
    ):
        key = ec.generate_private_key(ec.SECP256R1())
        write(file, certificate("robot", names, key, authority), key)


main()
